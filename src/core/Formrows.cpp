#include "core/Formrows.h"

#include <algorithm>
#include <array>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "core/Closedforms.h"
#include "core/Modules.h"
#include "core/Notifiers.h"

namespace tml {
namespace {

constexpr std::array<std::string_view, 4> kUnitExtensions{".pas", ".dpr", ".cpp", ".c"};

}  // namespace

bool IsSourceUnit(const std::string& fileName) {
    const std::string extension = ExtensionOf(fileName);
    return std::any_of(kUnitExtensions.begin(), kUnitExtensions.end(),
                       [&](std::string_view unit) { return SameText(unit, extension); });
}

void AddProjectModule(TContext& context, TFolderIndex& folders, const TOTAModuleInfo& module) {
    if (Contains(module.Name, ".")) return;
    context.Project.ProjectFiles.Add(module.FileName);
    if (module.FormName.empty()) {
        if (module.FileName.empty() || module.Name.empty() || !IsSourceUnit(module.FileName)) return;
        context.Project.UnitFiles.Add(module.FileName);
        context.Project.TranslatableUnits.Add(module.FileName);
        return;
    }
    TFormRows& list = context.Rows.FormNames;
    TFormRow& row = list.Add(module.FormName, module.Name, module.FileName);
    if (const auto open = GetModuleFromFileName(context, module.FileName)) {
        RefreshItem(context, &row);
        if (open->GetFormEditor() != nullptr) TmlModuleNotifier::Create(context, &list, &row, open);
    } else if (const std::string formFile = folders.FormFileOf(module.FileName); !formFile.empty()) {
        UpdateItem(&row,
                   AnalyzeClosedForm(*context.Host.Files, formFile, context.Host.Runtime->NamesArray()));
    }
}

void RefreshItem(TContext& context, TFormRow* row) {
    if (row != nullptr) UpdateItem(row, AnalyzeFile(context, row->FileName));
}

void ClearRows(TFormRows& list) {
    for (const auto& row : list.Items())
        if (row->Notifier != nullptr) row->Notifier->Detach();
    list.Clear();
}

TChoiceBox FormsBox(TContext& context, const std::string& chosen) {
    TChoiceBox box;
    for (const auto& row : context.Rows.FormNames.Items())
        box.Items.Add(row->FormName);
    box.Items.Sort();
    box.ItemIndex = box.Items.IndexOf(chosen);
    return box;
}

void SortRows(TContext& context, int column, int order) {
    TAllSteps steps;
    steps.Try([&] { context.Settings.SetSortOrder(order); });
    steps.Try([&] { context.Settings.SetSortedColumn(column); });
    context.Rows.FormNames.Sort(
        [&](const TFormRow& a, const TFormRow& b) { return CompareRows(a, b, column) * order; });
    steps.Finish();
}

}  // namespace tml
