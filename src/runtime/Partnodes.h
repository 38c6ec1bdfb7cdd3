#pragma once

#include <vector>

#include "layout/Layoutnode.h"
#include "runtime/Formparts.h"

namespace tml {

/// The components of a form, what it inherits and its frames included, as a layout takes them. Made of parts
/// that hold what stands on frames too (TFormParts::TFrames::Whole).
TLayoutNode LayoutNodeOf(const std::vector<TFormPart>& parts);

}  // namespace tml
