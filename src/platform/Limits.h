#pragma once

namespace tml {

/// More languages than anyone has; keeps a slip of the finger, or a broken form, from filling the memory.
inline constexpr int kMostLanguages = 10000;

}  // namespace tml
