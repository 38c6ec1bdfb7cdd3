#pragma once

#include "base/Stringlist.h"
#include "tables/Table.h"

namespace tml {

/// A list of strings that a descendant stores stands for its ancestor's, whose code runs there too. Appends
/// the ancestor's entries that it lacks, each in the languages of the same names; false where it lacks none.
bool TakeInheritedStrings(TTable& own, const TStringList& ownNames, TTable inherited,
                          const TStringList& inheritedNames);

}  // namespace tml
