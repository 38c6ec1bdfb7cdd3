#pragma once

#include <vector>

#include "source/Sourcetext.h"

namespace tml {

/// The regions of a Pascal text; see ReadOutline.
std::vector<TRegion> ReadPascalOutline(const TSourceText& source);

}  // namespace tml
