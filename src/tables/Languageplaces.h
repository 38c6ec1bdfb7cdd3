#pragma once

#include <vector>

#include "base/Stringlist.h"

namespace tml {

/// Where the languages of a component come from when it gets others: for each wanted name the place (1-based)
/// of the language of that name (without regard to case), each place once. A wanted name that the component
/// does not know is that of the language at the same place where this has no name but the generated one and
/// no wanted name claims it; else it is new, 0, as is an empty one.
std::vector<int> PlacesOfLanguages(const TStringList& present, const TStringList& wanted);

/// A change of languages: where each comes from (1-based, 0 for a new one), and which is active before and
/// then.
struct TLanguageMoves {
    std::vector<int> Places;
    int Active = 1;
    int NewActive = 1;

    /// The active one stays so where it stays; else it is the base language.
    static TLanguageMoves Of(std::vector<int> places, int active);
    /// The first places of so many languages, new ones behind them.
    static std::vector<int> FirstPlaces(int places, int languages);
    /// Where the texts that are shown then stand now; those of a new language begin as the base language's.
    int Shown() const;
    /// True where each of so many languages stays where it is.
    bool AreNone(int languages) const { return Places == FirstPlaces(languages, languages); }
};

/// The languages that no place leads to.
TStringList LostLanguages(const TStringList& present, const std::vector<int>& places);

}  // namespace tml
