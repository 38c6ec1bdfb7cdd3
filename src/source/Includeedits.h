#pragma once

#include <string>

#include "base/Edits.h"
#include "source/Sourcetext.h"

namespace tml {

/// #include "header" behind the last include of a C++ text, unless it is there already.
TEdits AddInclude(const TSourceText& source, const std::string& header);

/// A header is included in the place of another one, or, where that is to stay, behind it; where it is
/// included already the other one goes or stays. What is done is undone by the exchange the other way round.
TEdits ExchangeInclude(const TSourceText& source, const std::string& oldHeader, const std::string& newHeader,
                       bool keepsOld);

}  // namespace tml
