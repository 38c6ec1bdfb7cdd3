#pragma once

#include "layout/Layoutbox.h"

namespace tml {

/// The buttons that a panel of buttons shows, in the width that it has; Needed is the size for all of them.
struct TPanelButtons {
    TPanelButtons(const TLayoutBoxes& boxes, const TLayoutBox& panel);

    std::vector<TLayoutPart> Parts;
    TLayoutSize Needed;
};

}  // namespace tml
