#pragma once

#include <array>
#include <string_view>

namespace tml {

/// The calls by which source fetches a text by its ID, as they are written, in the order of their kinds.
inline constexpr std::array<std::string_view, 6> mlLangGetTextMethods = {
    "GetText(", "GetTextC(", "GetTextOrDefault(", "GetTextOrDefaultC(", "GetTextW(", "GetTextOrDefaultW("};

/// True for a call that gives a character pointer, not a string.
inline bool GivesCharacterPointer(std::string_view method) {
    return method.ends_with("C(");
}

}  // namespace tml
