#pragma once

#include "layout/Formlayout.h"
#include "layout/Layoutbox.h"

namespace tml {

/// Places the buttons and other controls of a tool bar in rows, or in columns where it stands upright, around
/// the aligned ones.
void PlaceToolBarRows(TLayoutBoxes& boxes, int toolBar);

/// The size that they need: in the width (upright: the height) that the bar has where the parent gives it,
/// else in one row.
TLayoutSize ToolBarWish(const TLayoutBoxes& boxes, int toolBar);

/// The picture that a button of a tool bar shows, and its text only where the bar shows texts.
void AddToolButtonDetails(const TLayoutBoxes& boxes, const TLayoutBox& button, TLayoutItem& item);

}  // namespace tml
