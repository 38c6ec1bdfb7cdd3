#pragma once

#include "layout/Layoutbox.h"

namespace tml {

/// Places the buttons and other controls of a tool bar in rows, or in columns where it stands upright, around
/// the aligned ones.
void PlaceToolBarRows(TLayoutBoxes& boxes, int toolBar);

/// The size that they need: in the width (upright: the height) that the bar has where the parent gives it,
/// else in one row.
TLayoutSize ToolBarWish(const TLayoutBoxes& boxes, int toolBar);

}  // namespace tml
