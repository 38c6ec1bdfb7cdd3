#include "core/Formrows.h"

#include <algorithm>
#include <array>
#include <set>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "core/Closedforms.h"
#include "core/Modules.h"
#include "core/Notifiers.h"

namespace tml {
namespace {

constexpr std::array<std::string_view, 4> kUnitExtensions{".pas", ".dpr", ".cpp", ".c"};

TFormAnalysis ReadClosed(TContext& context, TFolderIndex& folders, const std::string& unitFile) {
    const std::string formFile = folders.FormFileOf(unitFile);
    if (formFile.empty()) return {};
    return AnalyzeClosedForm(*context.Host.Files, formFile, context.Host.Runtime->NamesArray());
}

/// The row of an inserted component goes on showing the class.
void Follow(TFormRow& row, const TFormAnalysis& found) {
    if (!found.FormName.empty()) row.FormName = found.FormName;
    const bool showsClass = row.ShowsClass && found.ComponentName == row.Component.ComponentName;
    UpdateItem(&row, found);
    row.ShowsClass = showsClass;
}

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
    UpdateItem(&row, ReadForm(context, folders, module.FileName));
    if (const auto open = GetModuleFromFileName(context, module.FileName))
        if (open->GetFormEditor() != nullptr) TmlModuleNotifier::Create(context, &list, &row, open);
}

TFormAnalysis ReadForm(TContext& context, TFolderIndex& folders, const std::string& unitFile) {
    return IsFileOpen(context, unitFile) ? AnalyzeFile(context, unitFile)
                                         : ReadClosed(context, folders, unitFile);
}

void ReadRowsAgain(TContext& context, const std::vector<std::string>& fileNames) {
    TFolderIndex folders(*context.Host.Files);
    std::set<TFormRow*> rows;
    for (const std::string& fileName : fileNames)
        for (TFormRow* row : context.Rows.FormNames.FindUnitOrForm(fileName))
            rows.insert(row);
    TAllSteps steps;
    for (TFormRow* row : rows)
        steps.Try([&] { Follow(*row, ReadForm(context, folders, row->FileName)); });
    context.Rows.FormNames.Touch();
    steps.Finish();
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
