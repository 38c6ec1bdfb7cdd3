#include "scan/Rewrite.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "scan/Calls.h"
#include "source/Charclass.h"

namespace tml {
namespace {

std::size_t BehindLine(std::string_view text, std::size_t pos) {
    const std::size_t end = text.find('\n', pos);
    return end == std::string_view::npos ? text.size() : end + 1;
}

/// Finds the whole lines that tags may enclose: no tag line may come to stand in the middle of a
/// comment, a literal or a continued line.
class TLines {
  public:
    explicit TLines(const TSourceText& source) : source_(source) {}

    TTextRange Around(std::size_t begin, std::size_t end) const {
        TTextRange lines{begin, end};
        for (TTextRange last; last.Begin != lines.Begin || last.End != lines.End;) {
            last = lines;
            Cover(lines, source_.Comments());
            Cover(lines, source_.Literals());
            lines.Begin = LineStart(source_.Text(), lines.Begin);
            while (ContinuesBefore(lines.Begin))
                lines.Begin = LineStart(source_.Text(), lines.Begin - 1);
            if (lines.End == lines.Begin || source_.Text()[lines.End - 1] != '\n')
                lines.End = BehindLine(source_.Text(), lines.End);
            while (ContinuesBefore(lines.End) && lines.End < source_.Text().size())
                lines.End = BehindLine(source_.Text(), lines.End);
        }
        return lines;
    }

  private:
    /// Widens the range by the items that lie across its ends.
    template <typename Item>
    static void Cover(TTextRange& range, const std::vector<Item>& items) {
        for (const std::size_t place : {range.Begin, range.End}) {
            auto item = std::upper_bound(items.begin(), items.end(), place,
                                         [](std::size_t at, const Item& i) { return at < i.Begin; });
            if (item == items.begin() || (--item)->End <= place || item->Begin == place) continue;
            range.Begin = std::min(range.Begin, item->Begin);
            range.End = std::max(range.End, item->End);
        }
    }

    bool ContinuesBefore(std::size_t line) const {
        if (!source_.Language().IsCPPSource || line == 0) return false;
        const std::string_view before = source_.Text().substr(0, line);
        return before.ends_with("\\\n") || before.ends_with("\\\r\n");
    }

    const TSourceText& source_;
};

TEdits CallEdits(const TmlFoundSourceStrings& rows, std::string_view text) {
    TEdits edits;
    for (const TmlFoundSourceString& row : rows) {
        if (row.MarkedToIgnore) continue;
        const auto begin = static_cast<std::size_t>(row.SpanBegin - 1);
        // A literal may touch the word in front of it (return"x"), a call may not.
        const bool touches = begin > 0 && IsNameChar(text[begin - 1]) && !row.CodeBefore;
        edits.push_back(
            {begin, static_cast<std::size_t>(row.SpanEnd - 1), (touches ? " " : "") + WrittenText(row)});
    }
    return edits;
}

/// The lines of the marked rows, those that touch taken together.
std::vector<TTextRange> IgnoredLines(const TmlFoundSourceStrings& rows, const TSourceText& source) {
    std::vector<TTextRange> ranges;
    const TLines lines(source);
    for (const TmlFoundSourceString& row : rows) {
        if (!row.MarkedToIgnore) continue;
        const auto begin = static_cast<std::size_t>(row.SpanBegin - 1);
        // Many rows may stand on one long line.
        if (!ranges.empty() && begin < ranges.back().End) continue;
        const TTextRange range = lines.Around(begin, static_cast<std::size_t>(row.SpanEnd - 1));
        if (!ranges.empty() && range.Begin <= ranges.back().End)
            ranges.back().End = std::max(ranges.back().End, range.End);
        else
            ranges.push_back(range);
    }
    return ranges;
}

/// The tags that let a line of an ignored block through, as whole lines, by where that line begins.
std::map<std::size_t, TTextRange> TranslateTags(const TSourceText& source) {
    std::map<std::size_t, TTextRange> tags;
    const std::string_view text = source.Text();
    if (!HasTagLines(text, source.Language())) return tags;
    TTagState state(source.Language());
    TTextRange tag;
    for (TTextRange line; line.Begin < text.size(); line.Begin = line.End) {
        line.End = BehindLine(text, line.Begin);
        const bool isLetThrough = state.TranslatesNext();
        const bool isScanned = state.NextLine(text.substr(line.Begin, line.End - line.Begin));
        if (isLetThrough && isScanned) tags[line.Begin] = tag;
        if (!isLetThrough && state.TranslatesNext()) tag = line;
    }
    return tags;
}

TEdits TagEdits(const TmlFoundSourceStrings& rows, const TSourceText& source) {
    TEdits edits;
    const std::vector<TTextRange> ignored = IgnoredLines(rows, source);
    if (ignored.empty()) return edits;
    const std::map<std::size_t, TTextRange> translated = TranslateTags(source);
    for (const TTextRange& range : ignored) {
        // Without its tag the line is a part of the block that encloses it; a block of its own would end it.
        if (const auto tag = translated.find(range.Begin); tag != translated.end()) {
            edits.push_back({tag->second.Begin, tag->second.End, ""});
            continue;
        }
        const bool lastLineEnds = source.Text()[range.End - 1] == '\n';
        TIgnoreTags tags(source.Language(), true, lastLineEnds);
        edits.push_back({range.Begin, range.Begin, std::move(tags.Before)});
        edits.push_back({range.End, range.End, std::move(tags.Behind)});
    }
    return edits;
}

/// Checks a rewrite against the text that it leads to.
class TProof {
  public:
    TProof(const TmlFoundSourceStrings& kept, const TScanInput& input, const TEdits& edits)
        : kept_(kept),
          input_(input),
          edits_(edits),
          newSource_(ReadSource(ApplyEdits(input.Text(), edits), *input.Source)) {}

    void Run() {
        CheckRest();
        CheckCalls();
        CheckSecondScan();
    }

  private:
    [[noreturn]] void Fail(std::size_t oldOffset, const std::string& problem) const {
        const std::string_view before = input_.Text().substr(0, oldOffset);
        const int line = 1 + static_cast<int>(std::count(before.begin(), before.end(), '\n'));
        throw EBadInput(input_.FileName(), line, problem, "Nothing was changed; leave this string out.");
    }

    /// Compares what lies between the edits in both texts.
    void CheckRest() const {
        const std::string_view oldText = input_.Text();
        const std::string_view newText = newSource_->Text();
        std::size_t oldPos = 0;
        std::size_t newPos = 0;
        for (const TEdit& edit : edits_) {
            const std::size_t length = edit.Begin - oldPos;
            if (oldText.substr(oldPos, length) != newText.substr(newPos, length))
                Fail(oldPos, "the rewrite would change text outside the strings");
            oldPos = edit.End;
            newPos += length + edit.Text.size();
        }
        if (oldText.substr(oldPos) != newText.substr(newPos))
            Fail(oldPos, "the rewrite would change text outside the strings");
    }

    /// Every kept row must have become a call with its ID, at its place.
    void CheckCalls() {
        const std::vector<TAccessorCall> calls = FindCalls(*newSource_, input_.Component);
        const std::vector<const TmlFoundSourceString*> rows = Rewritten();
        std::size_t call = 0;
        std::ptrdiff_t shift = 0;
        for (const TEdit& edit : edits_) {
            const auto begin = static_cast<std::size_t>(static_cast<std::ptrdiff_t>(edit.Begin) + shift);
            shift += Growth(edit);
            if (calls_.size() == rows.size() || !IsEditOf(edit, *rows[calls_.size()])) continue;
            const TmlFoundSourceString& row = *rows[calls_.size()];
            calls_.push_back({begin, begin + edit.Text.size()});
            while (call < calls.size() && calls[call].Begin < begin)
                ++call;
            const bool found = call < calls.size() && calls[call].End <= calls_.back().End &&
                               CalledID(*newSource_, calls[call]) == row.StrID;
            if (!found) Fail(edit.Begin, "the string '" + row.StrID + "' would not be found as a call");
        }
        if (calls_.size() < rows.size())
            Fail(static_cast<std::size_t>(rows[calls_.size()]->SpanBegin - 1),
                 "a string would not be rewritten");
    }

    static bool IsEditOf(const TEdit& edit, const TmlFoundSourceString& row) {
        return edit.Begin + 1 == static_cast<std::size_t>(row.SpanBegin) &&
               edit.End + 1 == static_cast<std::size_t>(row.SpanEnd);
    }

    std::vector<const TmlFoundSourceString*> Rewritten() const {
        std::vector<const TmlFoundSourceString*> rows;
        for (const TmlFoundSourceString& row : kept_)
            if (!row.MarkedToIgnore) rows.push_back(&row);
        return rows;
    }

    /// The next scan must pass over every call and every marked string, and offer nothing that this one
    /// passes over.
    void CheckSecondScan() const {
        const std::set<std::size_t> offered = Offered();
        const std::vector<const TmlFoundSourceString*> rows = Rewritten();
        std::size_t call = 0;
        std::size_t edit = 0;
        std::ptrdiff_t shift = 0;
        for (const TmlFoundSourceString& row : ScanWhole(newSource_)) {
            const auto place = static_cast<std::size_t>(row.Position - 1);
            while (call < calls_.size() && calls_[call].End <= place)
                ++call;
            if (call < calls_.size() && calls_[call].Begin <= place)
                Fail(static_cast<std::size_t>(rows[call]->SpanBegin - 1),
                     "a string inside the call '" + rows[call]->StrID + "' would be found again");
            for (; edit < edits_.size() && NewEnd(edits_[edit], shift) <= place; ++edit)
                shift += Growth(edits_[edit]);
            const auto former = static_cast<std::size_t>(static_cast<std::ptrdiff_t>(place) - shift);
            if (!offered.contains(former)) Fail(former, "the next scan would offer what is passed over now");
        }
    }

    static std::ptrdiff_t Growth(const TEdit& edit) {
        return static_cast<std::ptrdiff_t>(edit.Text.size()) -
               static_cast<std::ptrdiff_t>(edit.End - edit.Begin);
    }
    /// Given by how much the edits in front have moved the text.
    static std::size_t NewEnd(const TEdit& edit, std::ptrdiff_t shift) {
        return static_cast<std::size_t>(static_cast<std::ptrdiff_t>(edit.Begin) + shift) + edit.Text.size();
    }

    /// Where the strings stand that may be offered again.
    std::set<std::size_t> Offered() const {
        std::set<std::size_t> places;
        for (const TmlFoundSourceString& row : ScanWhole(input_.Source))
            places.insert(static_cast<std::size_t>(row.Position - 1));
        for (const TmlFoundSourceString& row : kept_)
            places.erase(static_cast<std::size_t>(row.Position - 1));
        return places;
    }

    TmlFoundSourceStrings ScanWhole(const TSharedSource& source) const {
        TScanInput input = input_;
        input.Source = source;
        input.Selection.reset();
        input.WithAdvice = false;
        input.Progress = nullptr;
        return Scan(input).Found;
    }

    const TmlFoundSourceStrings& kept_;
    const TScanInput& input_;
    const TEdits& edits_;
    TSharedSource newSource_;
    std::vector<TTextRange> calls_;  ///< the rewritten rows in the new text
};

}  // namespace

TEdits Rewrite(const TmlFoundSourceStrings& kept, const TScanInput& input) {
    TmlFoundSourceStrings rows = kept;
    rows.Sort();
    const TEdits calls = CallEdits(rows, input.Text());
    const TEdits tags = TagEdits(rows, *input.Source);
    TEdits edits;
    // At one place a tag line comes in front of a call.
    std::merge(tags.begin(), tags.end(), calls.begin(), calls.end(), std::back_inserter(edits),
               [](const TEdit& left, const TEdit& right) { return left.Begin < right.Begin; });
    return edits;
}

void ProveRewrite(const TmlFoundSourceStrings& kept, const TScanInput& input, const TEdits& edits) {
    TmlFoundSourceStrings rows = kept;
    rows.Sort();
    TProof(rows, input, edits).Run();
}

}  // namespace tml
