#include "scan/Selunit.h"

#include "base/Files.h"
#include "base/Utf8.h"
#include "core/Formrows.h"
#include "core/Modules.h"
#include "platform/Projectoptions.h"

namespace tml {
namespace {

std::string DefaultForm(TContext& context) {
    const auto& settings = context.Host.Runtime->mlLangProjectSettings;
    if (settings == nullptr) return {};
    return std::get<std::string>(settings->GetOptionValue("DefaultFormForUnits"));
}

/// Those of the project, then the external ones.
TStringList UnitsWithoutForm(TContext& context) {
    TStringList units = context.Project.TranslatableUnits;
    for (const auto& row : context.Rows.ExternalFiles.Items())
        if (row->FormName.empty()) units.Add(row->FileName);
    return units;
}

}  // namespace

TfrmTranslUnits::TfrmTranslUnits(TContext& context)
    : lbUnits(UnitsWithoutForm(context)), cbForm(FormsBox(context, DefaultForm(context))) {
    Name = "frmTranslUnits";
    Caption = "Translate units without a form";
    ActiveControl = "lbUnits";
    const auto project = GetActiveProject(context);
    const std::string folder = project == nullptr ? std::string() : FolderOf(project->GetFileName());
    for (const std::string& unit : lbUnits.Items)
        UnitNames.Add(RelativeTo(folder, unit));
    const auto current = GetCurrentSourceEditor(context);
    if (current == nullptr) return;
    const int unit = lbUnits.Items.IndexOf(current->GetFileName());
    if (unit >= 0) lbUnits.Selected[static_cast<std::size_t>(unit)] = true;
}

bool TfrmTranslUnits::OKEnabled() const {
    return lbUnits.HasSelection() && (!OptionsVisible || cbForm.ItemIndex >= 0);
}

void TfrmTranslUnits::SelectAll() {
    for (int unit = 0; unit < UnitNames.Count(); ++unit)
        lbUnits.Selected[static_cast<std::size_t>(unit)] = IsShown(unit);
    Changed();
}

bool TfrmTranslUnits::IsShown(int unit) const {
    return Filter.empty() || Contains(FoldCase(UnitNames[unit]), FoldCase(Filter));
}

void TfrmTranslUnits::SetFilter(const std::string& text) {
    Filter = text;
    for (int unit = 0; unit < UnitNames.Count(); ++unit)
        if (!IsShown(unit)) lbUnits.Selected[static_cast<std::size_t>(unit)] = false;
    Changed();
}

void TfrmTranslUnits::btOKClick() {
    if (!OKEnabled()) return;
    Close(mrOk);
}

void TfrmTranslUnits::btCancelClick() {
    Close(mrCancel);
}

}  // namespace tml
