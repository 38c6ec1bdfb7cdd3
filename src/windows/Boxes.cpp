#include "windows/Boxes.h"

#include <algorithm>

namespace tml {
namespace {

/// A selected name changes places with one that is not.
void SwapWith(TStringList& names, std::vector<bool>& selected, int index, int other) {
    const auto a = static_cast<std::size_t>(index), b = static_cast<std::size_t>(other);
    if (!selected[a] || selected[b]) return;
    const std::string name = names[index];
    names.Set(index, names[other]);
    names.Set(other, name);
    selected[a] = false;
    selected[b] = true;
}

}  // namespace

bool TNamesBox::HasSelection() const {
    return std::find(Selected.begin(), Selected.end(), true) != Selected.end();
}

TStringList TNamesBox::SelectedItems() const {
    TStringList items;
    for (int i = 0; i < Items.Count(); ++i)
        if (Selected[static_cast<std::size_t>(i)]) items.Add(Items[i]);
    return items;
}

void MoveSelectedUp(TStringList& names, std::vector<bool>& selected) {
    for (int i = 1; i < names.Count(); ++i)
        SwapWith(names, selected, i, i - 1);
}

void MoveSelectedDown(TStringList& names, std::vector<bool>& selected) {
    for (int i = names.Count() - 2; i >= 0; --i)
        SwapWith(names, selected, i, i + 1);
}

void EraseSelected(TStringList& names, std::vector<bool>& selected) {
    TStringList kept;
    for (int i = 0; i < names.Count(); ++i)
        if (!selected[static_cast<std::size_t>(i)]) kept.Add(names[i]);
    names = kept;
    selected.assign(kept.Items().size(), false);
}

}  // namespace tml
