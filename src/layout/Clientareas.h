#pragma once

#include "layout/Layoutbox.h"

namespace tml {

/// Finds of every box how far its client area is from its border, and how big its parent's was in the design.
void FindClientAreas(TLayoutBoxes& boxes);

/// Height of a menu bar, a row of tabs, a title: a line of text and the room around it.
int MenuBarHeight(const TLayoutBoxes& boxes);
int TabsHeight(const TLayoutBoxes& boxes, const TLayoutBox& box);

/// The form's main menu, nullptr when it shows none.
const TLayoutNode* MainMenuOf(const TLayoutNode& form);

}  // namespace tml
