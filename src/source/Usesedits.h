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

/// The interface (the program) uses a unit in the place of another one: its name stands there, or, where the
/// other one is to stay, behind it. Where it is used already the other one is taken out or stays. What is
/// done is undone by the exchange the other way round.
TEdits ExchangeUsedUnit(const TSourceText& source, const std::string& oldUnit, const std::string& newUnit,
                        bool keepsOld);

}  // namespace tml
