// Any bytes as Pascal and as C++: comments, literals and tokens lie in order inside the text and agree.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "Expect.h"
#include "base/Utf8.h"
#include "source/Literals.h"

namespace tml::fuzz {
namespace {

void CheckComments(const TSourceText& source) {
    std::size_t last = 0;
    for (const TComment& comment : source.Comments()) {
        Expect(comment.Begin >= last && comment.Begin < comment.End, "comments are in order and not empty");
        last = comment.End;
        Expect(source.IsCommentAt(comment.Begin) != comment.IsDirective, "a comment's start is in a comment");
        Expect(source.IsCommentAt(comment.End - 1) != comment.IsDirective, "and so is its end");
    }
    Expect(last <= source.Text().size(), "comments lie in the text");
}

/// A text written as a literal is read as that text.
void CheckWriting(const std::string& text, const TLanguage& language) {
    // A control character leaves the quotes of a Pascal literal.
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; };
    if (!IsValidUtf8(text) || (!language.IsCPPSource && std::any_of(text.begin(), text.end(), isControl)))
        return;
    const std::string written =
        std::string(language.STRDELIM) + EncodeLiteralBody(text, language) + std::string(language.STRDELIM);
    const TSourceText source(std::string_view(written), language);
    Expect(source.Literals().size() == 1, "a written literal is one literal");
    Expect(DecodeLiteral(source, source.Literals().front()) == text, "a written literal has its text");
}

void CheckLiterals(const TSourceText& source) {
    std::size_t last = 0;
    for (const TLiteral& literal : source.Literals()) {
        Expect(literal.Begin >= last, "literals are in order");
        Expect(literal.Begin <= literal.Open && literal.Open < literal.BodyBegin, "a literal opens");
        Expect(literal.BodyBegin <= literal.BodyEnd && literal.BodyEnd < literal.End, "a literal closes");
        Expect(literal.InComment == source.IsCommentAt(literal.Open), "literals and comments agree");
        last = literal.End;
        CheckWriting(DecodeLiteral(source, literal), source.Language());
    }
    Expect(last <= source.Text().size(), "literals lie in the text");
}

void CheckTokens(const TSourceText& source) {
    std::size_t last = 0;
    for (const TToken& token : source.Tokens()) {
        Expect(token.Begin >= last && token.Begin < token.End, "tokens are in order and not empty");
        for (const char c : source.Text().substr(last, token.Begin - last))
            Expect(static_cast<unsigned char>(c) <= ' ' || c == '\\', "only blanks lie between tokens");
        if (token.Kind == TTokenKind::Literal)
            Expect(source.Literals().at(token.Index).Begin == token.Begin,
                   "a literal's token is at its place");
        if (token.Kind == TTokenKind::Comment || token.Kind == TTokenKind::Directive)
            Expect(source.Comments().at(token.Index).Begin == token.Begin, "and so is a comment's");
        last = token.End;
    }
    Expect(last <= source.Text().size(), "tokens lie in the text");
}

}  // namespace
}  // namespace tml::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const tml::TLanguage* language : {&tml::kPascal, &tml::kCpp}) {
        const tml::TSourceText source(text, *language);
        tml::fuzz::CheckComments(source);
        tml::fuzz::CheckLiterals(source);
        tml::fuzz::CheckTokens(source);
    }
    return 0;
}
