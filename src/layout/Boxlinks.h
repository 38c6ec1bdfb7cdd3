#pragma once

#include "layout/Layoutbox.h"

namespace tml {

/// What the children of a box keep to, and in which order they can be placed: each behind those that it
/// depends on.
struct TChildOrders {
    std::vector<int> Aligned[7];          ///< the visible children of each alignment, outermost first
    TPerAxis<std::vector<int>> Placed;    ///< all visible children that are not aligned
    TPerAxis<std::vector<int>> Measured;  ///< all visible children
};

/// Ties the sides of all children to what the form names, as far as it makes sense: siblings and the parent;
/// past one that is hidden. A tie that closes a circle is dropped and noted.
std::vector<TChildOrders> LinkBoxes(TLayoutBoxes& boxes);

}  // namespace tml
