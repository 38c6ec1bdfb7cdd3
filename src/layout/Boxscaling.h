#pragma once

#include "layout/Layoutbox.h"

namespace tml {

/// Makes of the lengths in a form those on the screen, where every control is at first as the form has it.
void ScaleBoxes(TLayoutBoxes& boxes);

/// What no form says and a theme asks for.
void KeepThemeSizes(TLayoutBoxes& boxes);

}  // namespace tml
