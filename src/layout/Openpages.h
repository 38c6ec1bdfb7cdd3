#pragma once

#include <string_view>

#include "layout/Layoutnode.h"

namespace tml {

/// Finds a component by its path ("btnOK", "fraCargo.grpCargo"; "" is the form) without regard to case, and
/// opens the pages that it stands on. nullptr where the form has none.
const TLayoutNode* OpenPagesTo(TLayoutNode& form, std::string_view path);

}  // namespace tml
