#pragma once

#include <string>
#include <vector>

#include "base/Stringlist.h"

namespace tml {

/// A closed list of which one entry can be chosen.
struct TChoiceBox {
    TStringList Items;
    int ItemIndex = -1;

    /// The chosen entry, "" when there is none.
    std::string Text() const { return ItemIndex < 0 ? std::string() : Items[ItemIndex]; }
};

/// A list of which several entries can be selected, with a flag for each.
struct TNamesBox {
    TStringList Items;
    std::vector<bool> Selected;

    TNamesBox() = default;
    explicit TNamesBox(TStringList items) : Items(std::move(items)), Selected(Items.Items().size()) {}

    bool HasSelection() const;
    TStringList SelectedItems() const;
};

// The commands on such lists; selected holds a flag for each name before and after.

/// Moves the selected names by one place, the selection with them; those at the end stay.
void MoveSelectedUp(TStringList& names, std::vector<bool>& selected);
void MoveSelectedDown(TStringList& names, std::vector<bool>& selected);
void EraseSelected(TStringList& names, std::vector<bool>& selected);

}  // namespace tml
