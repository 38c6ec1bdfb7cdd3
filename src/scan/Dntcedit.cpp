#include "scan/Dntcedit.h"

namespace tml {
namespace {

const std::string kKey = "\\Software\\Velmora\\TmlLang\\ExcludeComponents";
constexpr const char* kLeftWidth = "LeftWidth";

void Append(TNamesBox& box, const TStringList& names) {
    for (const std::string& name : names)
        box.Items.Add(name);
    box.Selected.resize(box.Items.Items().size());
}

}  // namespace

TfrmNotTranslate::TfrmNotTranslate(IRegistry& registry, TStringList available, TStringList selected)
    : lbComps(std::move(available)), lbSelected(std::move(selected)), registry_(registry) {
    Name = "frmNotTranslate";
    Caption = "Exclude Components";
    SelectionChange();
}

void TfrmNotTranslate::FormShow() {
    const auto stored = registry_.OpenForReading();
    ReadPlacement(*stored, kKey, Placement);
    if (const auto width = stored->ReadInteger(kKey, kLeftWidth)) LeftWidth = width;
    Changed();
}

void TfrmNotTranslate::FormClose() {
    WritePlacement(registry_, kKey, Placement);
    if (LeftWidth) registry_.WriteInteger(kKey, kLeftWidth, *LeftWidth);
}

void TfrmNotTranslate::SelectionChange() {
    btAddEnabled = lbComps.HasSelection();
    btAddAllEnabled = !lbComps.Items.Empty();
    btRemoveEnabled = lbSelected.HasSelection();
    btRemoveAllEnabled = !lbSelected.Items.Empty();
    Changed();
}

void TfrmNotTranslate::MoveSelected(TNamesBox& from, TNamesBox& to) {
    Append(to, from.SelectedItems());
    EraseSelected(from.Items, from.Selected);
    SelectionChange();
}

void TfrmNotTranslate::MoveItem(TNamesBox& from, TNamesBox& to, int index) {
    from.Selected.assign(from.Selected.size(), false);
    from.Selected.at(static_cast<std::size_t>(index)) = true;
    MoveSelected(from, to);
}

void TfrmNotTranslate::MoveAll(TNamesBox& from, TNamesBox& to) {
    if (from.Items.Empty()) return;
    Append(to, from.Items);
    from = {};
    to.Items.Sort();
    to.Selected.assign(to.Selected.size(), false);
    SelectionChange();
}

void TfrmNotTranslate::btOKClick() {
    Close(mrOk);
}

void TfrmNotTranslate::btCancelClick() {
    Close(mrCancel);
}

}  // namespace tml
