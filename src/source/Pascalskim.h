#pragma once

#include <string_view>

#include "source/Skim.h"

namespace tml {

TSkim SkimPascal(std::string_view text);

/// The Pascal literal on one line whose first apostrophe is at open.
TQuoted ReadPascalQuotes(std::string_view text, std::size_t open);

}  // namespace tml
