#pragma once

#include <string_view>

#include "layout/Layoutbox.h"

namespace tml {

/// True for what form files hold of forms and frames, and of no data module.
bool IsOfWindows(std::string_view property);

/// A data module has no controls, and nothing that only a window has; boxes are what was read of it.
bool IsDataModule(const TLayoutBoxes& boxes);

/// Adds its components as a designer shows them: an icon with the name below, those that the file gives no
/// place in rows below the others. The module is as large as they need.
void AddModuleComponents(TLayoutBoxes& boxes);

}  // namespace tml
