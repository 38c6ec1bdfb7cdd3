#include "core/Formslist.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Format.h"
#include "base/Stringlist.h"
#include "base/Utf8.h"

namespace tml {
namespace {

const std::vector<TListColumn> kColumns{
    {"Form Name", 76}, {"Unit Name", 75}, {"File Name", 145}, {"Languages", 70}, {"TmlLang", 315}};

std::optional<int> ParseNumber(std::string_view text) {
    try {
        return ToInteger(text);
    } catch (const EConvertError&) {
        return std::nullopt;
    }
}

/// Under this a unit, its header and its form file are found.
std::string KeyOf(const std::string& fileName) {
    return UpperCase(WithExtension(fileName, ""));
}

}  // namespace

TFormsList::TFormsList() : StatusPanels{"Form count: 0", "Unit count: 0", "Forms translated: 0(0)", ""} {
    FormNames.Columns = kColumns;
    ExternalFiles.Columns = kColumns;
}

std::string ColumnWidthsText(const TFormRows& list) {
    TStringList widths;
    for (const TListColumn& column : list.Columns)
        widths.Add(std::to_string(column.Width));
    return widths.CommaText();
}

void SetColumnWidths(TFormRows& list, std::string_view text) {
    const TStringList widths = TStringList::FromCommaText(Trim(text));
    const std::size_t count = std::min(list.Columns.size(), widths.Items().size());
    for (std::size_t i = 0; i < count; ++i)
        list.Columns[i].Width = ParseNumber(widths.Items()[i]).value_or(list.Columns[i].Width);
    list.Touch();
}

TFormRow& TFormRows::Add(const std::string& formName, const std::string& unitName,
                         const std::string& fileName) {
    TFormRow& row = TListOf::Add(formName, unitName, fileName);
    byFile_.emplace(KeyOf(fileName), &row);
    byForm_.emplace(UpperCase(formName), &row);
    return row;
}

void TFormRows::Clear() {
    byFile_.clear();
    byForm_.clear();
    TListOf::Clear();
}

std::vector<TFormRow*> TFormRows::Rows(const TIndex& index, const std::string& key) {
    std::vector<TFormRow*> rows;
    const auto [begin, end] = index.equal_range(key);
    std::transform(begin, end, std::back_inserter(rows), [](const auto& entry) { return entry.second; });
    return rows;
}

std::vector<TFormRow*> TFormRows::FindUnitOrForm(const std::string& fileName) const {
    return Rows(byFile_, KeyOf(fileName));
}

std::vector<TFormRow*> TFormRows::FindForms(std::string_view formName) const {
    return Rows(byForm_, UpperCase(formName));
}

TFormRow* TFormRows::FindFile(const std::string& fileName) const {
    for (TFormRow* row : FindUnitOrForm(fileName))
        if (SameText(row->FileName, fileName)) return row;
    return nullptr;
}

TFormRow* TFormRows::FindForm(const std::string& formName) const {
    for (TFormRow* row : FindForms(formName))
        if (row->FormName == formName) return row;
    return nullptr;
}

void TFormRows::Rename(TFormRow& row, const std::string& formName) {
    const auto [begin, end] = byForm_.equal_range(UpperCase(row.FormName));
    byForm_.erase(std::find_if(begin, end, [&](const auto& entry) { return entry.second == &row; }));
    row.FormName = formName;
    byForm_.emplace(UpperCase(formName), &row);
    Touch();
}

void UpdateStatusBar(TFormsList& list, int unitCount) {
    const auto& rows = list.FormNames.Items();
    const auto translated = std::count_if(
        rows.begin(), rows.end(), [](const auto& row) { return !row->Component.ComponentName.empty(); });
    list.StatusPanels[0] = Format("Forms count: %d", rows.size());
    list.StatusPanels[1] = Format("Units count: %d", unitCount);
    list.StatusPanels[2] = Format("Forms translated: %d of %d", translated, rows.size());
}

}  // namespace tml
