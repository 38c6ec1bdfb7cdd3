#include "scan/Scan.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <utility>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "scan/Calls.h"
#include "scan/Newids.h"
#include "source/Charclass.h"
#include "source/Literals.h"
#include "tables/Textmethods.h"

namespace tml {
namespace {

constexpr auto kNone = std::string_view::npos;

/// Walks the lines of a unit and hands over each literal that passes all tests. Lines without a
/// delimiter change nothing but the tag state, so they are passed over at once where no tags are.
class TWalk {
  public:
    explicit TWalk(const TScanInput& input)
        : input_(input),
          source_(*input.Source),
          text_(source_.Text()),
          language_(source_.Language()),
          begin_(input.Selection ? input.Selection->Begin : 0),
          end_(std::min(input.Selection ? input.Selection->End : text_.size(), text_.size())),
          rules_(input.Skip, language_, input.Common),
          calls_(FindCalls(source_, input.Component, input.Others)) {
        if (text_.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()) - 1)
            throw EBadInput(input.FileName(), 0, "the text is larger than 2 GB", "Divide the unit.");
        begin_ = std::min(begin_, end_);
        if (input.Common != nullptr) input.Common->InitInternalPasSource(std::string(text_));
    }

    /// onFound(index of the literal, its decoded text, end of its line) for each accepted literal.
    template <typename OnFound>
    void Run(TmlSkippedStrings& skipped, OnFound onFound) {
        const bool followTags = HasTagLines(text_.substr(0, end_), language_);
        TTagState tags(language_, followTags && StartsInsideBlock(text_.substr(0, begin_), language_));
        for (std::size_t pos = begin_; pos < end_;) {
            const std::size_t line = followTags ? pos : LineOfNextDelimiter(pos);
            const std::size_t lineEnd = line == kNone ? kNone : text_.find('\n', line);
            // A last line without an end is not scanned.
            if (lineEnd >= end_) break;
            pos = lineEnd + 1;
            if (!followTags || tags.NextLine(text_.substr(line, pos - line)))
                ScanLine(line, pos, skipped, onFound);
        }
    }

  private:
    std::size_t LineOfNextDelimiter(std::size_t pos) const {
        const std::size_t delimiter = text_.find(language_.Delimiter(), pos);
        return delimiter == kNone ? kNone : std::max(LineStart(text_, delimiter), pos);
    }

    template <typename OnFound>
    void ScanLine(std::size_t begin, std::size_t end, TmlSkippedStrings& skipped, OnFound& onFound) {
        const std::string_view line = text_.substr(begin, end - begin);
        const std::size_t delimiter = line.find(language_.Delimiter());
        if (delimiter == kNone) return;
        const auto position = static_cast<std::int32_t>(begin + delimiter + 1);
        if (!rules_.FindValidDelimitor(line, false, position, skipped)) return;
        const auto& literals = source_.Literals();
        while (literal_ < literals.size() && literals[literal_].Open < begin)
            ++literal_;
        for (; literal_ < literals.size() && literals[literal_].Open < end; ++literal_)
            Test(literals[literal_], end, skipped, onFound);
    }

    template <typename OnFound>
    void Test(const TLiteral& literal, std::size_t lineEnd, TmlSkippedStrings& skipped, OnFound& onFound) {
        // A negative length lets even the empty literal through to the other tests.
        const bool isShort = std::cmp_less_equal(literal.RawLength(), input_.Skip.IgnorableLength);
        if (isShort || literal.Begin < begin_ || literal.End > end_) return;
        if (IsInCall(literal)) return;
        if (literal.End > lineEnd && IsRefusedLater(literal, lineEnd, skipped)) return;
        const std::string text = DecodeLiteral(source_, literal);
        const auto place = static_cast<std::int32_t>(literal.Open);
        const TStringSkipReason reason = rules_.IsExcludeString(text, place, -1);
        if (reason != ssrNone)
            SkipString(skipped, text, place + 1, reason, false);
        else
            onFound(literal_, text, lineEnd);
    }

    bool IsInCall(const TLiteral& literal) {
        // Calls may lie in one another; the outermost one that has not ended decides.
        for (; call_ < calls_.size() && calls_[call_].Open < literal.Open; ++call_)
            callsEnd_ = std::max(callsEnd_, calls_[call_].End);
        return literal.Open < callsEnd_;
    }

    /// A literal over several lines is offered only when none of the later ones is a tag or refused.
    bool IsRefusedLater(const TLiteral& literal, std::size_t line, TmlSkippedStrings& skipped) const {
        while (line < literal.End) {
            const std::size_t end = std::min(text_.find('\n', line), text_.size() - 1) + 1;
            const std::string_view later = text_.substr(line, end - line);
            const TStringSkipReason reason = rules_.RefusalOf(later);
            if (IsTagLine(later, language_)) return true;
            if (reason != ssrNone) {
                // A line with a candidate of its own is recorded when the walk comes to it.
                if (!rules_.HasCandidate(later, false))
                    SkipString(skipped, text_.substr(line, LineEnd(text_, line) - line),
                               static_cast<std::int32_t>(line + 1), reason, false);
                return true;
            }
            line = end;
        }
        return false;
    }

    const TScanInput& input_;
    const TSourceText& source_;
    std::string_view text_;
    const TLanguage& language_;
    std::size_t begin_;
    std::size_t end_;
    TSkipRules rules_;
    std::vector<TAccessorCall> calls_;
    std::size_t literal_ = 0;
    std::size_t call_ = 0;
    std::size_t callsEnd_ = 0;
};

std::unique_ptr<INewIDs> NewIDsOf(const TScanInput& input) {
    if (input.IDsFromTexts) return std::make_unique<TTextIDs>(input.HCPrefix, input.Existing);
    return std::make_unique<TCountedIDs>(input.HCPrefix, input.Existing);
}

void Describe(TmlFoundSourceString& row, const TLiteral& literal, const std::string& text,
              const TLanguage& language) {
    row.StrContent = text;
    row.Position = static_cast<std::int32_t>(literal.Open + 1);
    row.SpanBegin = static_cast<std::int32_t>(literal.Begin + 1);
    row.SpanEnd = static_cast<std::int32_t>(literal.End + 1);
    row.SpanLength = row.SpanEnd - row.SpanBegin;
    row.CodeBefore = literal.CodeBefore;
    row.CodeAfter = literal.CodeAfter;
    row.EscapeDelimiter = language.IsCPPSource && text.find(language.Delimiter()) != kNone;
}

void Report(const TScanInput& input, int count) {
    if (input.Progress && !input.Progress(count)) throw EmlLangSilent();
}

std::int32_t CountLines(std::string_view text) {
    return static_cast<std::int32_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace

TCallStyle CallStyleOf(const TScanInput& input) {
    TCallStyle style;
    style.Language = &input.Source->Language();
    style.Reference = input.Component.Text(*style.Language);
    style.ReplaceMethod = input.ReplaceMethod;
    style.CommentsLength = input.CommentsLength;
    style.NoCommentsInSources = input.NoCommentsInSources;
    style.CommentsNest = input.Source->CommentsNest();
    const TByteEncodings& encodings = input.Source->ByteEncodings();
    if (encodings.front() != "UTF-8") style.Encoding = encodings.front();
    return style;
}

TScanResult Scan(const TScanInput& input) {
    TScanResult result;
    TWalk walk(input);
    const TSourceText& source = *input.Source;
    const TCallStyle style = CallStyleOf(input);
    const auto ids = NewIDsOf(input);
    std::vector<std::size_t> places;
    std::int32_t line = 0;
    std::size_t counted = 0;
    walk.Run(result.Skipped, [&](std::size_t index, const std::string& text, std::size_t lineEnd) {
        const TLiteral& literal = source.Literals()[index];
        TmlFoundSourceString& row = result.Found.AddItem();
        Describe(row, literal, text, source.Language());
        line += CountLines(source.Text().substr(counted, literal.Open - counted));
        counted = literal.Open;
        row.Line = line;
        row.ScanPosition = static_cast<std::int32_t>(lineEnd);
        row.StrID = ids->Next(text);
        row.Replacement = ReplacementText(style, row.StrID, text);
        places.push_back(index);
        Report(input, result.Found.Count());
    });
    if (!input.WithAdvice || places.empty()) return result;
    const std::string formClass = input.Component.ClassName();
    const std::vector<TAdvice> advice =
        Advise(source, {formClass, input.Component.WithForm, input.Header.get(),
                        GivesCharacterPointer(input.ReplaceMethod)});
    for (std::size_t i = 0; i < places.size(); ++i)
        result.Found[static_cast<int>(i)].Advice = advice[places[i]];
    return result;
}

TStringCounts CountStrings(const TScanInput& input) {
    TStringCounts counts;
    TmlSkippedStrings skipped;
    TWalk(input).Run(skipped,
                     [&](std::size_t, const std::string&, std::size_t) { Report(input, ++counts.Found); });
    counts.Skipped = static_cast<int>(skipped.size());
    return counts;
}

}  // namespace tml
