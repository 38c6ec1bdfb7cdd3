#pragma once

#include <string_view>
#include <vector>

#include "source/Sourcetext.h"

namespace tml {

/// The regions of a C++ text; see ReadOutline.
std::vector<TRegion> ReadCppOutline(const TSourceText& source);

/// The methods that a C++ text, mostly a header, declares static in a class: their names.
std::vector<std::string_view> ReadStaticMethods(const TSourceText& source, std::string_view className);

}  // namespace tml
