#pragma once

#include <string_view>

namespace tml {

/// What a string ID is, as the message says it that refuses another text.
constexpr std::string_view kStringIDRule =
    "An ID is not empty and has no line break, no control character and no blank at its ends";
bool IsStringID(std::string_view text);

/// Made of letters (of any script), digits, "_", "-" and "." only. Other IDs work, but a source hardly shows
/// where one ends.
bool IsPlainStringID(std::string_view id);

/// Whether a source may write the ID in another way than it reads, which the check of string IDs does not
/// follow.
bool IsEscapedInSource(std::string_view id);

}  // namespace tml
