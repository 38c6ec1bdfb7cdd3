#pragma once

#include "layout/Layoutbox.h"

namespace tml {

/// The bands of a cool bar, each around its control: from the one before it in the row, with what it is drawn
/// by, to the next one.
void AddBands(const TLayoutBoxes& boxes, const TLayoutBox& bar, TLayoutItem& item);

}  // namespace tml
