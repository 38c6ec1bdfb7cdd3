#pragma once

#include <string>
#include <string_view>

#include "source/Sourcetext.h"

namespace tml {

/// The class from which the text derives the class, the first one where there are several; "" where the text
/// does not declare the class or names none.
std::string AncestorOf(const TSourceText& source, std::string_view className);

}  // namespace tml
