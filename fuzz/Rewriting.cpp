// A unit is scanned and rewritten: the rewrite is proven, and a second scan finds nothing of it.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>

#include "Expect.h"
#include "base/Codedtext.h"
#include "base/Errors.h"
#include "scan/Duplicates.h"
#include "scan/Rewrite.h"

namespace tml::fuzz {
namespace {

TScanInput InputOf(const std::string& text, const std::string& fileName) {
    TScanInput input;
    input.Source = ReadSource(text, fileName);
    input.Component = {"MainForm", "mlLang1", false, "TMainForm"};
    input.Existing = TTable(TStringsType::stStrings, TStringList({"IDS_1|Close", "IDS_5|it's"}), "|");
    input.Skip.SkipWords.SetText("OK\r\n");
    input.Skip.SkipLines.SetText("assert(\r\n");
    input.Skip.ExcludeChars = ".,:;'\" ";
    return input;
}

void CheckFound(const TScanInput& input, const TScanResult& result) {
    std::int32_t last = 1;
    std::set<std::string> ids;
    for (const TmlFoundSourceString& found : result.Found) {
        Expect(found.SpanBegin >= last, "found strings are in order and apart");
        Expect(found.SpanBegin <= found.Position && found.Position < found.SpanEnd,
               "a string is in its span");
        Expect(found.SpanLength == found.SpanEnd - found.SpanBegin, "a span has its length");
        Expect(ids.insert(found.StrID).second, "every string has an ID of its own");
        last = found.SpanEnd;
    }
    Expect(last <= static_cast<std::int32_t>(input.Text().size()) + 1, "found strings lie in the text");
    Expect(CountStrings(input).Found == result.Found.Count(), "counting and finding agree");
}

/// The rows that can become calls where they stand, or all of them.
TmlFoundSourceStrings Kept(const TScanResult& result, bool all) {
    TmlFoundSourceStrings kept;
    for (const TmlFoundSourceString& found : result.Found)
        if (all || found.Advice == TAdvice::None) kept.AddItem() = found;
    return kept;
}

bool Proven(const TmlFoundSourceStrings& kept, const TScanInput& input, const TEdits& edits) {
    try {
        ProveRewrite(kept, input, edits);
        return true;
    } catch (const EBadInput& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return false;
    }
}

/// Quotes that no compiler takes: what they enclose is anybody's guess, so that a rewrite between them may
/// be refused.
bool HasStrayQuotes(const TScanInput& input) {
    const auto& tokens = input.Source->Tokens();
    return std::any_of(tokens.begin(), tokens.end(), [&](const TToken& token) {
        const bool inQuotes =
            token.Kind != TTokenKind::Literal && TextOf(*input.Source, token).front() == '"';
        return token.Kind == TTokenKind::Stray || inQuotes;
    });
}

/// A literal as a member of something, which no compiler takes: in its place a call would be one of that
/// thing.
bool HasMemberLiterals(const TScanInput& input) {
    const auto& tokens = input.Source->Tokens();
    return std::adjacent_find(tokens.begin(), tokens.end(), [&](const TToken& left, const TToken& right) {
               const std::string_view sign = TextOf(*input.Source, left);
               const bool isAccess = sign == "." || sign == "->" || sign == "::";
               return isAccess && right.Kind == TTokenKind::Literal;
           }) != tokens.end();
}

/// What stands behind a parenthesis that is never closed may count as an argument of the call in front of it.
bool HasOpenParentheses(const TScanInput& input) {
    int open = 0;
    for (const TToken& token : input.Source->CodeTokens()) {
        const std::string_view text = TextOf(*input.Source, token);
        open += text == "(" ? 1 : text == ")" ? -1 : 0;
    }
    return open != 0;
}

void CheckRewrite(const TScanInput& input, const TScanResult& result) {
    const TmlFoundSourceStrings kept = Kept(result, false);
    const TEdits edits = Rewrite(kept, input);
    Expect(AreValid(edits, input.Text().size()), "the edits fit the text");
    const bool proven = Proven(kept, input, edits);
    Expect(proven || HasStrayQuotes(input) || HasMemberLiterals(input),
           "a rewrite without advised rows is proven");
    if (!proven) return;
    TScanInput second = input;
    second.Source = ReadSource(ApplyEdits(input.Text(), edits), input.FileName());
    const int left = result.Found.Count() - kept.Count();
    const int found = CountStrings(second).Found;
    Expect(found == left || (found < left && HasOpenParentheses(input)), "a second scan finds no call again");
}

void CheckUnit(const std::string& text, const std::string& fileName) {
    TScanInput input = InputOf(text, fileName);
    TScanResult result = Scan(input);
    CheckFound(input, result);
    CheckRewrite(input, result);
    // Rows in places where no call can stand may fail the proof, but must get through it.
    TmlFoundSourceStrings all = Kept(result, true);
    if (!all.Empty()) all[static_cast<int>(text.size()) % all.Count()].MarkedToIgnore = true;
    VerifyAgainstExisting(all, input.Existing, CallStyleOf(input));
    MergeDuplicates(all);
    Proven(all, input, Rewrite(all, input));
}

}  // namespace
}  // namespace tml::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const tml::TCodedText text(std::string(reinterpret_cast<const char*>(data), size));
    for (const char* fileName : {"Main.pas", "Main.cpp"})
        tml::fuzz::CheckUnit(text.Text(), fileName);
    return 0;
}
