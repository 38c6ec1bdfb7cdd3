#pragma once

#include <string>

#include "base/Stringlist.h"

namespace tml {

/// More languages than anyone has; keeps a slip of the finger, or a broken form, from filling the memory.
inline constexpr int kMostLanguages = 10000;

/// The name given to the language at a 1-based position when there is none for it.
std::string GeneratedLangName(int position);

/// The names of so many languages (at most kMostLanguages): those that there are, generated ones where they
/// are too few.
TStringList FitLangNames(TStringList names, int count);

}  // namespace tml
