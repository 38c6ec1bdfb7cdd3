#pragma once

#include <array>
#include <string>
#include <vector>

#include "tables/Dictionarysearch.h"
#include "tables/Table.h"

namespace tml {

/// What becomes of a translation that a dictionary is asked for: it gets another text or state; the
/// dictionary has none for it; it has one already, this very one included; or it is empty, and only
/// translations that equal the base text are to be filled.
enum class TDictionaryOutcome { Filled, Unknown, Existing, Empty };

/// How many translations came to what.
struct TDictionaryCounts {
    std::array<int, 4> Outcomes = {};

    int& operator[](TDictionaryOutcome outcome) { return Outcomes[static_cast<std::size_t>(outcome)]; }
    int operator[](TDictionaryOutcome outcome) const { return Outcomes[static_cast<std::size_t>(outcome)]; }
    TDictionaryCounts& operator+=(const TDictionaryCounts& other);
};

/// What is not filled, and why, for people.
std::string TextOfOthers(const TDictionaryCounts& counts);

/// A translation, and what it becomes.
struct TDictionaryFill {
    TStringsType Table = TStringsType::stCaptions;
    int Entry = 0;  ///< 0-based
    std::string Key;
    std::string Base;
    TTableValue Old;
    TTableValue New;
};

/// What a dictionary makes of an entry's translation at a place (2 or more), and the value where it is
/// Filled: one that is done where the dictionary has the very base text, else touched, with what the
/// dictionary has as the former base text.
TDictionaryOutcome FilledValue(const TTableEntry& entry, int place, const TDictionarySearch& search,
                               TTableValue& value);

/// The translations of tables at a place that a dictionary fills; settings, such as fonts, are none.
std::vector<TDictionaryFill> PlanFill(const std::vector<TTable>& tables, int place,
                                      const TDictionarySearch& search, TDictionaryCounts& counts);

/// Does what was planned for these very tables.
void FillTables(std::vector<TTable>& tables, int place, const std::vector<TDictionaryFill>& fills);

}  // namespace tml
