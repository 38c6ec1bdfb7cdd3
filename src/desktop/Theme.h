#pragma once

#include <QPalette>

class QApplication;

namespace tml {

enum class TTheme { Desktop, Light, Dark };

/// True for light text on dark paper.
bool IsDark(const QPalette& palette);

/// Dresses the program; Desktop takes the side on which the desktop is now.
void SetTheme(QApplication& application, TTheme theme);

}  // namespace tml
