#include "tables/Textstats.h"

#include <algorithm>

#include "tables/Textmerge.h"
#include "tables/Textshapes.h"

namespace tml {

TTextStats& TTextStats::operator+=(const TTextStats& other) {
    Texts += other.Texts;
    Words += other.Words;
    for (std::size_t i = 0; i < States.size(); ++i)
        States[i] += other.States[i];
    return *this;
}

std::int64_t CountWords(std::string_view text) {
    std::int64_t words = 0;
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t begin = text.find_first_not_of(" \t\r\n", pos);
        if (begin == std::string_view::npos) break;
        pos = std::min(text.find_first_of(" \t\r\n", begin), text.size());
        words += IsPunctuation(text.substr(begin, pos - begin)) ? 0 : 1;
    }
    return words;
}

std::vector<TTextStats> StatsOf(const std::vector<TTable>& tables, int languages) {
    std::vector<TTextStats> stats(static_cast<std::size_t>(std::max(languages, 0)));
    for (const TTable& table : tables) {
        if (!HasStates(table.Type())) continue;
        for (const TTableEntry& entry : table.Entries()) {
            const std::int64_t words = CountWords(entry.Base());
            for (int place = 1; place <= languages; ++place) {
                TTextStats& one = stats[static_cast<std::size_t>(place) - 1];
                ++one.Texts;
                one.Words += words;
                ++one.States[static_cast<std::size_t>(place == 1 ? TTextState::Done : StateOf(entry, place))];
            }
        }
    }
    return stats;
}

}  // namespace tml
