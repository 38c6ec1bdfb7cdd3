#pragma once

#include <vector>

#include "scan/Advice.h"

namespace tml {

/// What a C++ text says of each of its literals beyond the nearest brackets, in the order of Literals():
/// Macro for one that is joined with a name or another literal, in some build at least; DefaultParameter for
/// one among the parameters of a lambda; OutsideMethod for one in a lambda that has not captured "this".
std::vector<TAdvice> AdviseSurroundings(const TSourceText& source);

}  // namespace tml
