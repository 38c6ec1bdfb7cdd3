#pragma once

#include <vector>

#include "base/Stringlist.h"

namespace tml {

/// Where the languages of a component come from when it gets others: for each wanted name the place (1-based)
/// of the language of that name (without regard to case), each place once. A wanted name that the component
/// does not know is that of the language at the same place where this has no name but the generated one and
/// no wanted name claims it; else it is new, 0, as is an empty one.
std::vector<int> PlacesOfLanguages(const TStringList& present, const TStringList& wanted);

/// The languages that no place leads to.
TStringList LostLanguages(const TStringList& present, const std::vector<int>& places);

}  // namespace tml
