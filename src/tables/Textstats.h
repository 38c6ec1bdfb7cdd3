#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "tables/States.h"

namespace tml {

/// How far a language is.
struct TTextStats {
    std::int64_t Texts = 0;
    std::int64_t Words = 0;  ///< of the base texts
    std::array<std::int64_t, 4> States = {};

    std::int64_t Of(TTextState state) const { return States[static_cast<std::size_t>(state)]; }
    TTextStats& operator+=(const TTextStats& other);
};

/// For each of so many languages, the base language first. Settings, such as fonts, are no texts.
std::vector<TTextStats> StatsOf(const std::vector<TTable>& tables, int languages);

/// Words are separated by blanks and hold a letter or a digit.
std::int64_t CountWords(std::string_view text);

}  // namespace tml
