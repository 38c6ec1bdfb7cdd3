#pragma once

#include <QPalette>

namespace tml {

/// The colours of the windows, and of what a form gives no colour of its own.
QPalette MakePalette(bool dark);

}  // namespace tml
