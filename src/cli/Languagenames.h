#pragma once

#include <string>

namespace tml {

/// What is wrong with the languages of an option, comma text; "" for nothing.
std::string CheckLanguageNames(const std::string& text);

}  // namespace tml
