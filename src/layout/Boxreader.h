#pragma once

#include "layout/Layoutbox.h"

namespace tml {

/// The controls of a form, as the form has them: classes found, fonts handed down. What cannot be seen
/// (menus, timers) is left out.
void ReadBoxes(TLayoutBoxes& boxes, const TLayoutNode& form);

}  // namespace tml
