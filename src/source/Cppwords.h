#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "source/Sourcetext.h"

namespace tml {

/// True for a word of C++ behind which a value begins ("return", "case", "new" ...).
bool IsWordBeforeValue(std::string_view name);

/// True when the "[" at a place of these tokens opens the captures of a lambda, no index and no attribute.
bool OpensCaptures(const TSourceText& source, const std::vector<TToken>& tokens, std::size_t index);

}  // namespace tml
