#pragma once

#include <string>
#include <string_view>

namespace tml {

/// The text (UTF-8) written with the characters of ASCII alone: other scripts by their usual Latin letters,
/// letters without their marks; what has no such form goes.
std::string AsciiOf(std::string_view text);

}  // namespace tml
