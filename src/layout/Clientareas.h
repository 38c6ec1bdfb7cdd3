#pragma once

#include <string>
#include <vector>

#include "layout/Layoutbox.h"

namespace tml {

/// Finds of every box how far its client area is from its border, and how big its parent's was in the design.
void FindClientAreas(TLayoutBoxes& boxes);

/// A line of text and the room around it.
int MenuBarHeight(const TLayoutBoxes& boxes);

/// The side of a control of pages at which its tabs stand, how far they reach in from there, and their texts.
std::size_t SideOfTabs(const TLayoutBox& box);
int TabsDepth(const TLayoutBoxes& boxes, const TLayoutBox& box);
std::vector<std::string> TabTexts(const TLayoutBoxes& boxes, const TLayoutBox& box);

/// The form's main menu, nullptr when it shows none.
const TLayoutNode* MainMenuOf(const TLayoutNode& form);

}  // namespace tml
