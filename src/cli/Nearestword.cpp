#include "cli/Nearestword.h"

#include <algorithm>
#include <numeric>

#include "base/Utf8.h"

namespace tml {
namespace {

/// How many letters have to be put in, taken out or changed to make one word of the other.
std::size_t Distance(const std::string& left, const std::string& right) {
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char letter : left) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < right.size(); ++j) {
            const std::size_t changed = diagonal + (letter == right[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

}  // namespace

std::string NearestWord(const std::vector<std::string>& words, const std::string& word) {
    std::string nearest;
    std::size_t least = (word.size() + 2) / 3 + 1;
    for (const std::string& each : words) {
        const std::size_t distance = Distance(FoldCase(word), FoldCase(each));
        if (distance >= least) continue;
        least = distance;
        nearest = each;
    }
    return nearest;
}

}  // namespace tml
