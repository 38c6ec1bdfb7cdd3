#pragma once

#include <string>

#include "layout/Layoutnode.h"

namespace tml {

/// The tree as the text of a form's file, of which LayoutNodeOf makes it again, but for classes of the
/// project. What no form can hold is left out.
std::string FormTextOf(const TLayoutNode& form);

}  // namespace tml
