#pragma once

#include <array>
#include <string_view>

namespace tml {

/// The calls by which source fetches a text by its ID, as they are written, in the order of their kinds.
inline constexpr std::array<std::string_view, 6> mlLangGetTextMethods = {
    "GetText(", "GetTextC(", "GetTextOrDefault(", "GetTextOrDefaultC(", "GetTextW(", "GetTextOrDefaultW("};

}  // namespace tml
