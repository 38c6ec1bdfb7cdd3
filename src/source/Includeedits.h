#pragma once

#include <string>

#include "base/Edits.h"
#include "source/Sourcetext.h"

namespace tml {

/// #include "header" behind the last include of a C++ text, unless it is there already.
TEdits AddInclude(const TSourceText& source, const std::string& header);

}  // namespace tml
