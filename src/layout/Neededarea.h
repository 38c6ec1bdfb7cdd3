#pragma once

#include "layout/Boxlinks.h"
#include "layout/Layoutbox.h"

namespace tml {

/// The client area that the visible children of a box need, on one axis; 0 where none of them asks for any.
int NeededRoom(const TLayoutBoxes& boxes, int parent, std::size_t axis, const TChildOrders& orders);

/// The size that a child wants of a parent that sizes itself.
int WantedSize(const TLayoutBoxes& boxes, int child, std::size_t axis);

/// How far the children that stand where the form puts them can go towards the near edge of the axis, all of
/// them alike.
int SparedRoom(const TLayoutBoxes& boxes, int parent, std::size_t axis);

}  // namespace tml
