#pragma once

#include <unordered_map>

#include "layout/Layoutbox.h"

namespace tml {

/// Places those children in rows and columns that say nothing of their own, as the parent's spreading asks
/// for, in the client area that it has.
void SpreadChildren(TLayoutBoxes& boxes, int parent);

/// Where they would stand on one axis, by child, in a client area as large as they need it.
std::unordered_map<int, TLayoutExtent> TableExtents(const TLayoutBoxes& boxes, int parent, std::size_t axis);

}  // namespace tml
