#pragma once

#include <string>
#include <string_view>

#include "windows/Controls.h"

namespace tml {

/// The modifier bits of a shortcut.
inline constexpr TShortCut kShift = 0x2000;
inline constexpr TShortCut kCtrl = 0x4000;
inline constexpr TShortCut kAlt = 0x8000;

/// "Ctrl+L", "Shift+Ctrl+Del"; "" for no shortcut or an unknown key.
std::string ShortCutToText(TShortCut shortCut);

/// Reads a shortcut without regard to case, modifiers in any order, "^" for Ctrl. 0 for a text that is none.
TShortCut TextToShortCut(std::string_view text);

}  // namespace tml
