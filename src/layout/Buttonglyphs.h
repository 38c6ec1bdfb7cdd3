#pragma once

#include <string_view>

#include "layout/Layoutgeometry.h"
#include "layout/Layoutnode.h"

namespace tml {

/// The caption of a button of a kind ("bkOK") whose form gives none; "" for one without a kind.
std::string_view CaptionOfKind(std::string_view kind);

/// The picture on a button: that of its kind, or the one in the form; empty for none.
TLayoutSize GlyphOf(const TLayoutNode& button);

}  // namespace tml
