#pragma once

#include <string_view>

namespace tml {

/// What a string ID is, as the message says it that refuses another text.
constexpr std::string_view kStringIDRule =
    "An ID is not empty and has no line break, no control character and no blank at its ends";
bool IsStringID(std::string_view text);

/// Made of letters, digits, "_", "-" and "." only. Other IDs work, but a source hardly shows where one ends
/// and may have to write it otherwise.
bool IsPlainStringID(std::string_view id);

}  // namespace tml
