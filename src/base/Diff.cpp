// Lines that stand once in both texts anchor the comparison (the longest ascending run of them); what
// lies between two anchors is compared the same way again, and where no such line is left, the old lines
// are removed and the new ones added. That reads well for a rewritten source and stays near linear.
#include "base/Diff.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace tml {
namespace {

using TLines = std::vector<std::string_view>;

struct TRange {
    int Begin;
    int End;
    int Size() const { return End - Begin; }
};

/// A pair of ranges of lines that differ; everything between two of them is equal.
struct THunk {
    TRange Old;
    TRange New;
};

TLines SplitLines(std::string_view text) {
    TLines lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::size_t size = end == std::string_view::npos ? text.size() : end + 1;
        lines.push_back(text.substr(0, size));
        text.remove_prefix(size);
    }
    return lines;
}

class TComparison {
  public:
    TComparison(const TLines& oldLines, const TLines& newLines) : old_(oldLines), new_(newLines) {}

    std::vector<THunk> Run() {
        std::vector<THunk> waiting = {
            {{0, static_cast<int>(old_.size())}, {0, static_cast<int>(new_.size())}}};
        while (!waiting.empty()) {
            THunk part = waiting.back();
            waiting.pop_back();
            TrimEqualEnds(part);
            if (part.Old.Size() == 0 && part.New.Size() == 0) continue;
            const std::vector<std::pair<int, int>> anchors = Anchors(part);
            if (anchors.empty())
                hunks_.push_back(part);
            else
                SplitAtAnchors(part, anchors, waiting);
        }
        return hunks_;
    }

  private:
    void TrimEqualEnds(THunk& part) const {
        while (part.Old.Size() > 0 && part.New.Size() > 0 &&
               At(old_, part.Old.Begin) == At(new_, part.New.Begin)) {
            ++part.Old.Begin;
            ++part.New.Begin;
        }
        while (part.Old.Size() > 0 && part.New.Size() > 0 &&
               At(old_, part.Old.End - 1) == At(new_, part.New.End - 1)) {
            --part.Old.End;
            --part.New.End;
        }
    }

    /// The longest ascending run of lines that are unique in both ranges.
    std::vector<std::pair<int, int>> Anchors(const THunk& part) const {
        struct TPlaces {
            int OldCount = 0, NewCount = 0, Old = 0, New = 0;
        };
        std::vector<TPlaces> places;  // in the order of the old lines
        std::unordered_map<std::string_view, std::size_t> byLine;
        places.reserve(static_cast<std::size_t>(part.Old.Size()));
        byLine.reserve(places.capacity());
        for (int i = part.Old.Begin; i < part.Old.End; ++i) {
            const auto [known, isNew] = byLine.try_emplace(At(old_, i), places.size());
            if (isNew) places.push_back({0, 0, i, 0});
            ++places[known->second].OldCount;
        }
        for (int i = part.New.Begin; i < part.New.End; ++i) {
            const auto known = byLine.find(At(new_, i));
            if (known == byLine.end()) continue;
            ++places[known->second].NewCount;
            places[known->second].New = i;
        }
        std::vector<std::pair<int, int>> pairs;
        for (const TPlaces& place : places)
            if (place.OldCount == 1 && place.NewCount == 1) pairs.emplace_back(place.Old, place.New);
        return LongestAscending(pairs);
    }

    static std::vector<std::pair<int, int>> LongestAscending(const std::vector<std::pair<int, int>>& pairs) {
        std::vector<int> tails;
        std::vector<int> previous(pairs.size(), -1);
        const auto isBefore = [&](int a, int b) {
            return pairs[static_cast<std::size_t>(a)].second < pairs[static_cast<std::size_t>(b)].second;
        };
        for (int i = 0; i < static_cast<int>(pairs.size()); ++i) {
            // Most lines follow the one before.
            const bool follows = tails.empty() || isBefore(tails.back(), i);
            const auto place =
                follows ? tails.end() : std::lower_bound(tails.begin(), tails.end(), i, isBefore);
            if (place != tails.begin()) previous[static_cast<std::size_t>(i)] = *(place - 1);
            if (place == tails.end())
                tails.push_back(i);
            else
                *place = i;
        }
        std::vector<std::pair<int, int>> result;
        for (int i = tails.empty() ? -1 : tails.back(); i >= 0; i = previous[static_cast<std::size_t>(i)])
            result.push_back(pairs[static_cast<std::size_t>(i)]);
        std::reverse(result.begin(), result.end());
        return result;
    }

    /// Pushes the parts between anchors so that the first is taken up next.
    static void SplitAtAnchors(const THunk& part, const std::vector<std::pair<int, int>>& anchors,
                               std::vector<THunk>& waiting) {
        THunk rest = part;
        for (auto anchor = anchors.rbegin(); anchor != anchors.rend(); ++anchor) {
            waiting.push_back({{anchor->first + 1, rest.Old.End}, {anchor->second + 1, rest.New.End}});
            rest.Old.End = anchor->first;
            rest.New.End = anchor->second;
        }
        waiting.push_back(rest);
    }

    static std::string_view At(const TLines& lines, int index) {
        return lines[static_cast<std::size_t>(index)];
    }

    const TLines& old_;
    const TLines& new_;
    std::vector<THunk> hunks_;
};

class TPrinter {
  public:
    TPrinter(const TLines& oldLines, const TLines& newLines) : old_(oldLines), new_(newLines) {}

    std::string Print(const std::vector<THunk>& hunks) {
        for (std::size_t i = 0; i < hunks.size();) {
            std::size_t next = i + 1;
            while (next < hunks.size() && hunks[next].Old.Begin - hunks[next - 1].Old.End <= 2 * kContext)
                ++next;
            PrintGroup(hunks, i, next);
            i = next;
        }
        return text_;
    }

  private:
    static constexpr int kContext = 3;

    void PrintGroup(const std::vector<THunk>& hunks, std::size_t first, std::size_t end) {
        const THunk& head = hunks[first];
        const THunk& tail = hunks[end - 1];
        const int before = std::min(kContext, head.Old.Begin);
        const int after = std::min(kContext, static_cast<int>(old_.size()) - tail.Old.End);
        text_ += "@@ -" + Place(head.Old.Begin - before, tail.Old.End + after) + " +" +
                 Place(head.New.Begin - before, tail.New.End + after) + " @@\n";
        int done = head.Old.Begin - before;
        for (std::size_t i = first; i < end; ++i) {
            PrintLines(' ', old_, {done, hunks[i].Old.Begin});
            PrintLines('-', old_, hunks[i].Old);
            PrintLines('+', new_, hunks[i].New);
            done = hunks[i].Old.End;
        }
        PrintLines(' ', old_, {done, tail.Old.End + after});
    }

    static std::string Place(int begin, int end) {
        const int size = end - begin;
        return std::to_string(size == 0 ? begin : begin + 1) + (size == 1 ? "" : "," + std::to_string(size));
    }

    void PrintLines(char sign, const TLines& lines, TRange range) {
        for (int i = range.Begin; i < range.End; ++i) {
            const std::string_view line = lines[static_cast<std::size_t>(i)];
            text_ += sign;
            text_ += line;
            if (line.back() != '\n') text_ += "\n\\ No newline at end of file\n";
        }
    }

    const TLines& old_;
    const TLines& new_;
    std::string text_;
};

/// A tab ends a name with blanks: without it the patch program takes the first word for the whole name.
std::string HeaderLine(const char* sign, const std::string& name) {
    return sign + name + (name.find(' ') == std::string::npos ? "\n" : "\t\n");
}

}  // namespace

std::string UnifiedDiff(const std::string& oldName, const std::string& newName, std::string_view oldText,
                        std::string_view newText) {
    if (oldText == newText) return {};
    const TLines oldLines = SplitLines(oldText);
    const TLines newLines = SplitLines(newText);
    const std::vector<THunk> hunks = TComparison(oldLines, newLines).Run();
    return HeaderLine("--- ", oldName) + HeaderLine("+++ ", newName) +
           TPrinter(oldLines, newLines).Print(hunks);
}

}  // namespace tml
