#pragma once

#include "layout/Boxlinks.h"
#include "layout/Layoutbox.h"

namespace tml {

/// Reckons the size that every box wants for what it holds: its text, its children.
void FindWishes(TLayoutBoxes& boxes, const std::vector<TChildOrders>& orders);

/// A text as it stands in lines of at most this width; a width below 1 breaks no line. An "&" before an
/// access key is left out where marksKeys.
TLayoutSize TextSize(const ITextMeasure& texts, std::string_view text, const TLayoutFont& font, int width,
                     bool marksKeys);

}  // namespace tml
