// The run-time library in Object Pascal compares IDs without case by a table that is made from our own
// mapping, so that both find the same entry. TML_GENERATE=1 in the environment writes the table anew.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

#include "base/Utf8.h"

namespace tml {
namespace {

struct TCaseRange {
    long First, Last, Delta, Step;
};

long UpperOf(long codePoint) {
    std::string text;
    AppendCodePoint(text, static_cast<char32_t>(codePoint));
    std::size_t pos = 0;
    return static_cast<long>(DecodeCodePoint(UpperCase(text), pos));
}

/// A range goes on with a code point that is mapped by the same distance, one or two places further.
bool Extend(TCaseRange& range, long codePoint, long delta) {
    const long step = codePoint - range.Last;
    if (delta != range.Delta || step > 2 || (range.Step != 0 && step != range.Step)) return false;
    range.Last = codePoint;
    range.Step = step;
    return true;
}

std::vector<TCaseRange> CaseRanges() {
    std::vector<TCaseRange> ranges;
    for (long codePoint = 0x80; codePoint <= 0x10FFFF; ++codePoint) {
        if (codePoint >= 0xD800 && codePoint <= 0xDFFF) continue;
        const long delta = UpperOf(codePoint) - codePoint;
        if (delta != 0 && (ranges.empty() || !Extend(ranges.back(), codePoint, delta)))
            ranges.push_back({codePoint, codePoint, delta, 0});
    }
    return ranges;
}

std::string PascalTable() {
    const std::vector<TCaseRange> ranges = CaseRanges();
    std::string table =
        "{ Made from the case mapping of the C++ side by the test of this table; not to be edited. }\n"
        "  CaseRanges: array[0.." +
        std::to_string(ranges.size() - 1) + "] of TmlCaseRange = (\n";
    for (const TCaseRange& range : ranges) {
        char row[96];
        std::snprintf(row, sizeof row, "    (First: $%lX; Last: $%lX; Delta: %ld; Step: %ld)%s\n",
                      range.First, range.Last, range.Delta, range.Step == 0 ? 1 : range.Step,
                      &range == &ranges.back() ? ");" : ",");
        table += row;
    }
    return table;
}

TEST(PascalCase, TheTableIsOurMapping) {
    const std::string path = TML_TESTS "/../components/Mlcasetable.inc";
    const std::string table = PascalTable();
    if (std::getenv("TML_GENERATE") != nullptr) std::ofstream(path) << table;
    std::ifstream file(path);
    EXPECT_TRUE(std::string(std::istreambuf_iterator<char>(file), {}) == table)
        << path << " is out of date; run this test with TML_GENERATE=1";
}

}  // namespace
}  // namespace tml
