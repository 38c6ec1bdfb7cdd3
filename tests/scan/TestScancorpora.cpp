// The scan and the rewrite over all Pascal sources and C++ headers that the test machine has.
#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iconv.h>
#include <map>
#include <set>

#include "base/Codedtext.h"
#include "base/Errors.h"
#include "scan/Rewrite.h"
#include "scan/Scansupport.h"
#include "support/Corpora.h"

namespace tml {
namespace {

namespace fs = std::filesystem;

bool IsIn(const std::vector<TSpan>& spans, std::size_t place) {
    const auto behind =
        std::upper_bound(spans.begin(), spans.end(), TSpan{place, static_cast<std::size_t>(-1)});
    return behind != spans.begin() && place < std::prev(behind)->second;
}

/// The text of a literal as the compiler takes it.
std::string Undoubled(const std::string& text, const TSpan& span) {
    std::string content;
    for (std::size_t i = span.first + 1; i < span.second - 1; ++i) {
        content += text[i];
        if (text[i] == '\'') ++i;
    }
    return content;
}

/// Where a row of the scan does not lie as the reading has it, "" when all do.
std::string Misplaced(const TScanResult& result, const std::string& text, const TSimpleReading& reading) {
    for (const TmlFoundSourceString& row : result.Found) {
        const TSpan span(static_cast<std::size_t>(row.SpanBegin - 1),
                         static_cast<std::size_t>(row.SpanEnd - 1));
        const bool isLiteral = std::binary_search(reading.Literals.begin(), reading.Literals.end(), span) ||
                               IsIn(reading.Directives, span.first);
        if (!isLiteral || Undoubled(text, span) != row.StrContent)
            return "found at " + std::to_string(row.SpanBegin) + ": " + row.StrContent;
    }
    for (const TmlSkippedString& row : result.Skipped) {
        if (row.Reason == ssrByLine || row.Reason == ssByIgnoreTag) continue;
        const auto place = static_cast<std::size_t>(row.Position - 1);
        if (IsIn(reading.Literals, place) == (row.Reason == ssrComments))
            return "skipped at " + std::to_string(row.Position) + ": " + row.Text;
    }
    return {};
}

TEST(Corpora, EveryPascalLiteralThatAScanReportsIsOne) {
    const auto files = PartOf(FilesBelow("/usr/share/fpcsrc", {".pas", ".pp"}), 12);
    ASSERT_FALSE(files.empty()) << "the package fpc-source is missing";
    std::size_t found = 0, skipped = 0;
    for (const fs::path& path : files) {
        const std::string bytes = ReadFileOf(path);
        TScanInput input = InputFor(path.string(), TCodedText::TextOf(bytes));
        EXPECT_TRUE(input.Text() == TCodedText(bytes).Text()) << path;
        input.WithAdvice = false;
        const TScanResult result = Scan(input);
        found += static_cast<std::size_t>(result.Found.Count());
        skipped += result.Skipped.size();
        const std::string text(input.Text());
        const bool nests = input.Source->CommentsNest();
        std::string wrong = Misplaced(result, text, SimpleReading(text, nests));
        // A text that turns nesting on half-way has no single simple reading.
        if (!wrong.empty() && nests) wrong = Misplaced(result, text, SimpleReading(text, false));
        EXPECT_EQ(wrong, "") << path;
    }
    EXPECT_GT(found, 10'000U);
    EXPECT_GT(skipped, 500U);
}

TEST(Corpora, EveryCppLiteralThatAScanReportsIsOne) {
    std::size_t found = 0;
    for (const fs::path& path : CppHeaders()) {
        const std::string text = TCodedText(ReadFileOf(path), path.string()).Text();
        std::vector<std::size_t> lines{0};
        for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos;)
            lines.push_back(++at);
        std::set<std::size_t> quotes, ends;
        for (const TCompilerToken& token : CompilerTokens(path)) {
            const std::size_t begin = lines.at(token.Line - 1) + token.Column - 1;
            quotes.insert(begin + token.Text.find('"'));
            const auto breaks = std::count(token.Text.begin(), token.Text.end(), '\n');
            ends.insert(begin + token.Text.size() + static_cast<std::size_t>(breaks));
        }
        const TScanResult result = Scan(InputFor(path.string() + ".h", text));
        for (const TmlFoundSourceString& row : result.Found) {
            EXPECT_TRUE(quotes.contains(static_cast<std::size_t>(row.Position - 1))) << path << row.Position;
            EXPECT_TRUE(ends.contains(static_cast<std::size_t>(row.SpanEnd - 1))) << path << row.Position;
        }
        for (const TmlSkippedString& row : result.Skipped)
            EXPECT_NE(quotes.contains(static_cast<std::size_t>(row.Position - 1)), row.Reason == ssrComments)
                << path << row.Position;
        found += static_cast<std::size_t>(result.Found.Count());
    }
    EXPECT_GT(found, 50U);
}

// --- rewriting in every encoding

struct TTarget {
    const char* CodePage;   ///< of the project
    const char* Converter;  ///< the C library's name
    std::string Bom;
};
const TTarget kTargets[] = {
    {"932", "CP932", ""},
    {"1250", "CP1250", ""},
    {"1251", "CP1251", ""},
    {"1252", "CP1252", ""},
    {"1252", "UTF-8", "\xEF\xBB\xBF"},
    {"1252", "UTF-16LE", "\xFF\xFE"},
};

/// Encodes by the C library, which shares no code with the system; false where a character has no place.
bool Convert(const TTarget& target, std::string_view text, std::string& bytes) {
    const iconv_t converter = iconv_open(target.Converter, "UTF-8");
    std::string in(text), out(text.size() * 4 + 16, '\0');
    char* from = in.data();
    char* to = out.data();
    std::size_t inLeft = in.size(), outLeft = out.size();
    const bool done = iconv(converter, &from, &inLeft, &to, &outLeft) == 0;
    iconv_close(converter);
    bytes.append(out, 0, out.size() - outLeft);
    return done;
}

/// Text with CR LF as it stands in a file whose line ends are those of the original.
std::string WithLineEnds(std::string text, bool crLf) {
    if (!crLf) std::erase(text, '\r');
    return text;
}

enum class TOutcome { CannotHold, Untouched, Same, Different };

/// Rewrites every string of the text in the encoding, and compares the file with one that is put together
/// from the encoded pieces.
TOutcome RewriteIn(const TTarget& target, const std::string& name, const std::string& text, bool crLf) {
    std::string bytes = target.Bom;
    if (!Convert(target, WithLineEnds(text, crLf), bytes)) return TOutcome::CannotHold;
    TCodedText coded(bytes, name, target.CodePage);
    // Few bytes above 127 may be valid UTF-8 by chance: another text then, which the file's bytes hold too.
    if (coded.Text() != text) return TOutcome::CannotHold;
    TScanInput input = InputFor(name, text);
    input.WithAdvice = false;
    const TScanResult result = Scan(input);
    if (result.Found.Empty()) return TOutcome::Untouched;
    const TEdits edits = Rewrite(result.Found, input);
    std::string expected = target.Bom;
    std::size_t end = 0;
    for (const TEdit& edit : edits) {
        Convert(target, WithLineEnds(text.substr(end, edit.Begin - end), crLf), expected);
        Convert(target, edit.Text, expected);
        end = edit.End;
    }
    Convert(target, WithLineEnds(text.substr(end), crLf), expected);
    coded.Check(edits);
    coded.Apply(edits);
    return coded.Bytes() == expected ? TOutcome::Same : TOutcome::Different;
}

TEST(Corpora, ARewriteChangesOnlyTheReplacedSpansInEveryEncoding) {
    std::vector<fs::path> files;
    const auto all = FilesBelow("/usr/share/fpcsrc", {".pas", ".pp"});
    ASSERT_FALSE(all.empty()) << "the package fpc-source is missing";
    const bool whole = std::getenv("TML_WHOLE_CORPUS") != nullptr;
    for (std::size_t i = 0; i < all.size(); i += whole ? 1 : 60)
        files.push_back(all[i]);
    std::map<TOutcome, int> outcomes;
    for (const fs::path& path : files) {
        const std::string bytes = ReadFileOf(path);
        const std::string text = TCodedText(bytes, path.string()).Text();
        const auto lines = std::count(bytes.begin(), bytes.end(), '\n');
        const bool crLf = std::count(bytes.begin(), bytes.end(), '\r') == lines;
        for (const TTarget& target : kTargets) {
            const TOutcome outcome = RewriteIn(target, path.string(), text, crLf);
            EXPECT_NE(outcome, TOutcome::Different) << path << " as " << target.Converter;
            ++outcomes[outcome];
        }
    }
    RecordProperty("Same", outcomes[TOutcome::Same]);
    RecordProperty("CannotHold", outcomes[TOutcome::CannotHold]);
    RecordProperty("Untouched", outcomes[TOutcome::Untouched]);
    EXPECT_GT(outcomes[TOutcome::Same], 150);
}

}  // namespace
}  // namespace tml
