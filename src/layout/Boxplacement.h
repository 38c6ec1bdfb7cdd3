#pragma once

#include "layout/Boxlinks.h"
#include "layout/Layoutbox.h"

namespace tml {

/// Gives all visible children of a box their places, from the place that the box has.
void PlaceChildren(TLayoutBoxes& boxes, int parent, const TChildOrders& orders);

}  // namespace tml
