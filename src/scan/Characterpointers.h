#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "source/Sourcetext.h"

namespace tml {

/// For each literal, in the order of Literals(), whether a character pointer is wanted where it stands, which
/// a call that gives a string is not: it is assigned, passed or returned to a type that the text declares
/// as one, or passed to a routine that is known for it. header: of a C++ unit, may be null.
std::vector<bool> FindCharacterPointers(const TSourceText& source, const TSourceText* header);

}  // namespace tml
