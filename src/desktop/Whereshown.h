#pragma once

#include <string>

#include "layout/Layoutnode.h"

namespace tml {

/// Where a person sees the text of a component that has no place of its own on a form.
struct TWhereShown {
    const TLayoutNode* Control = nullptr;  ///< a control that shows it, the pages open that it stands on
    std::string Note;                      ///< the same in words; of use where the component is not seen
};

/// component is of the form. Actions are shown by what is linked to them, items of menus by their menu.
TWhereShown WhereShown(TLayoutNode& form, const TLayoutNode& component);

}  // namespace tml
