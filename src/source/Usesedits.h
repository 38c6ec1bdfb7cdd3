#pragma once

#include <string>

#include "base/Edits.h"
#include "source/Sourcetext.h"

namespace tml {

/// Edits of a Pascal unit's uses clauses; names of units are compared without regard to case. EBadInput
/// with file and line where a clause that must be changed is missing or has no end, and where a unit stands
/// under a condition so that not every build could use it.

/// Appends the unit to the uses clause of the interface (of a program: to its only one) unless it is
/// used there already.
TEdits AddUsedUnit(const TSourceText& source, const std::string& unitName);
/// Appends the unit to the uses clause of the implementation, which is made where there is none, unless
/// the unit is used in either part.
TEdits AddImplementationUnit(const TSourceText& source, const std::string& unitName);

}  // namespace tml
