#include "core/Formrows.h"

#include <algorithm>
#include <array>
#include <set>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "core/Modules.h"
#include "core/Notifiers.h"

namespace tml {
namespace {

constexpr std::array<std::string_view, 4> kUnitExtensions{".pas", ".dpr", ".cpp", ".c"};

/// What is known of the row's component; an open form is followed from now on.
void Fill(TContext& context, TFormRows& list, TFormRow& row, const TFormAnalysis& found) {
    UpdateItem(&row, found);
    if (const auto open = GetModuleFromFileName(context, row.FileName))
        if (open->GetFormEditor() != nullptr) TmlModuleNotifier::Create(context, &list, &row, open);
}

/// The row of a form that others have changed; its name may be another one.
void Follow(TFormRows& list, TFormRow& row, const TFormAnalysis& found) {
    if (!found.FormName.empty()) list.Rename(row, found.FormName);
    UpdateItem(&row, found);
}

}  // namespace

bool IsSourceUnit(const std::string& fileName) {
    const std::string extension = ExtensionOf(fileName);
    return std::any_of(kUnitExtensions.begin(), kUnitExtensions.end(),
                       [&](std::string_view unit) { return SameText(unit, extension); });
}

void AddProjectModule(TContext& context, TClosedForms& closed, const TOTAModuleInfo& module) {
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
    Fill(context, list, row, ReadForm(context, closed, module.FileName));
}

void AddExternalRow(TContext& context, TClosedForms& closed, const std::string& fileName) {
    TFormRows& list = context.Rows.ExternalFiles;
    if (list.FindFile(fileName) != nullptr) return;
    const TFormAnalysis found = ReadForm(context, closed, fileName);
    const std::string unitName = WithExtension(FileNameOf(fileName), "");
    Fill(context, list, list.Add(found.FormName, unitName, fileName), found);
}

void ListExternalFiles(TContext& context) {
    ClearRows(context.Rows.ExternalFiles);
    TClosedForms closed(context.Host);
    TAllSteps steps;
    for (const std::string& file : context.ExternalFiles.Files())
        steps.Try([&] { AddExternalRow(context, closed, file); });
    steps.Finish();
}

TFormAnalysis ReadForm(TContext& context, TClosedForms& closed, const std::string& unitFile) {
    return IsFileOpen(context, unitFile) ? AnalyzeFile(context, unitFile) : closed.Read(unitFile);
}

void ReadRowsAgain(TContext& context, const std::vector<std::string>& fileNames) {
    TClosedForms closed(context.Host);
    TAllSteps steps;
    for (TFormRows* list : context.Rows.Both()) {
        std::set<TFormRow*> rows;
        for (const std::string& fileName : fileNames)
            for (TFormRow* row : list->FindUnitOrForm(fileName))
                rows.insert(row);
        for (TFormRow* row : rows)
            steps.Try([&] { Follow(*list, *row, ReadForm(context, closed, row->FileName)); });
        list->Touch();
    }
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
