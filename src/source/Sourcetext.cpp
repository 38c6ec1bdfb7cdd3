#include "source/Sourcetext.h"

#include <algorithm>
#include <iterator>

#include "source/Cppskim.h"
#include "source/Pascalskim.h"
#include "source/Readcounts.h"

namespace tml {

TSourceText::TSourceText(std::string_view text, const TLanguage& language, std::string fileName)
    : text_(text), language_(&language), fileName_(std::move(fileName)) {
    ++ReadCounts().Skims;
    TSkim skim = language.IsCPPSource ? SkimCpp(text) : SkimPascal(text);
    comments_ = std::move(skim.Comments);
    literals_ = std::move(skim.Literals);
    commentsNest_ = skim.CommentsNest;
}

TSourceText::TSourceText(std::shared_ptr<const std::string> text, const std::string& fileName,
                         TByteEncodings byteEncodings)
    : TSourceText(std::string_view(*text), LanguageOf(fileName), fileName) {
    owned_ = std::move(text);
    byteEncodings_ = std::move(byteEncodings);
}

const std::vector<TToken>& TSourceText::Tokens() const {
    if (!tokens_) {
        ++ReadCounts().Tokenizations;
        tokens_ = Tokenize(*this);
    }
    return *tokens_;
}

const std::vector<TToken>& TSourceText::CodeTokens() const {
    if (!codeTokens_) {
        std::vector<TToken>& code = codeTokens_.emplace();
        code.reserve(Tokens().size());
        std::copy_if(Tokens().begin(), Tokens().end(), std::back_inserter(code), [](const TToken& token) {
            return token.Kind != TTokenKind::Comment && token.Kind != TTokenKind::Directive;
        });
    }
    return *codeTokens_;
}

const std::vector<TRegion>& TSourceText::Outline() const {
    if (!outline_) {
        ++ReadCounts().Outlines;
        outline_ = ReadOutline(*this);
    }
    return *outline_;
}

bool TSourceText::IsCommentAt(std::size_t offset) const {
    const auto behind =
        std::upper_bound(comments_.begin(), comments_.end(), offset,
                         [](std::size_t place, const TComment& c) { return place < c.Begin; });
    if (behind == comments_.begin()) return false;
    const TComment& comment = *(behind - 1);
    return offset < comment.End && !comment.IsDirective;
}

int TSourceText::LineOf(std::size_t offset) const {
    const std::string_view before = text_.substr(0, offset);
    return 1 + static_cast<int>(std::count(before.begin(), before.end(), '\n'));
}

TSharedSource ReadSource(std::string text, const std::string& fileName, TByteEncodings byteEncodings) {
    return std::make_shared<const TSourceText>(std::make_shared<const std::string>(std::move(text)), fileName,
                                               std::move(byteEncodings));
}

TSharedSource ReadSource(std::string text, const TSourceText& former) {
    return ReadSource(std::move(text), former.FileName(), former.ByteEncodings());
}

}  // namespace tml
