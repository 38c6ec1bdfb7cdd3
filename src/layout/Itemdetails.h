#pragma once

#include "layout/Layoutbox.h"

namespace tml {

/// Adds what is needed to draw a control beyond its place: colours, alignment of its text, what it is made
/// of.
void AddDetails(const TLayoutBoxes& boxes, const TLayoutBox& box, TLayoutItem& item);

}  // namespace tml
