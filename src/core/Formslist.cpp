#include "core/Formslist.h"

#include <algorithm>
#include <optional>

#include "base/Errors.h"
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

TListItem* FindRow(TListView& list, const std::function<bool(const TListItem&)>& fits) {
    const auto found =
        std::find_if(list.Items().begin(), list.Items().end(), [&](const auto& item) { return fits(*item); });
    return found == list.Items().end() ? nullptr : found->get();
}

}  // namespace

TFormsList::TFormsList() : StatusPanels{"Form count: 0", "Unit count: 0", "Forms translated: 0(0)", ""} {
    FormNames.Columns = kColumns;
    ExternalFiles.Columns = kColumns;
}

std::string ColumnWidthsText(const TListView& list) {
    TStringList widths;
    for (const TListColumn& column : list.Columns)
        widths.Add(std::to_string(column.Width));
    return widths.CommaText();
}

void SetColumnWidths(TListView& list, std::string_view text) {
    const TStringList widths = TStringList::FromCommaText(Trim(text));
    const std::size_t count = std::min(list.Columns.size(), widths.Items().size());
    for (std::size_t i = 0; i < count; ++i)
        list.Columns[i].Width = ParseNumber(widths.Items()[i]).value_or(list.Columns[i].Width);
    list.Touch();
}

void UpdateItem(TListItem* item, const std::string& componentName, int numLang,
                const std::string& className) {
    if (item == nullptr) return;
    const bool localized = numLang >= 1;
    item->SubItems[fcLanguages] = localized ? std::to_string(numLang) : "0";
    item->SubItems[fcComponent] = localized ? componentName : "";
    item->SubItems[fcClass] = localized ? className : "";
    item->StateIndex = localized ? 1 : 0;
}

TListItem& AddRow(TListView& list, const std::string& formName, const std::string& unitName,
                  const std::string& fileName) {
    TListItem& item = list.Add();
    item.Caption = formName;
    item.SubItems = {unitName, fileName, "", "", "", UpperCase(fileName)};
    UpdateItem(&item, "", 0);
    return item;
}

TRowGuard::~TRowGuard() {
    if (kept_) return;
    item_.SubItems = cells_;
    item_.StateIndex = stateIndex_;
}

TListItem* FindRowOfFile(TListView& list, const std::string& fileName) {
    return FindRow(
        list, [key = UpperCase(fileName)](const TListItem& item) { return item.SubItems[fcFileKey] == key; });
}

TListItem* FindRowOfForm(TListView& list, const std::string& formName) {
    return FindRow(list, [&](const TListItem& item) { return item.Caption == formName; });
}

int CompareRows(const TListItem& a, const TListItem& b, int column) {
    if (column <= 0 || column > fcComponent + 1) return CompareText(a.Caption, b.Caption);
    const auto cell = static_cast<std::size_t>(column - 1);
    if (cell != fcLanguages) return CompareText(a.SubItems[cell], b.SubItems[cell]);
    // Equal counts never give 0, on purpose: their order is the one in which the sort leaves them.
    return ParseNumber(a.SubItems[cell]) <= ParseNumber(b.SubItems[cell]) ? -1 : 1;
}

void UpdateStatusBar(TFormsList& list, int unitCount) {
    const auto& rows = list.FormNames.Items();
    const auto translated = std::count_if(
        rows.begin(), rows.end(), [](const auto& row) { return !row->SubItems[fcComponent].empty(); });
    list.StatusPanels[0] = Format("Forms count: %d", rows.size());
    list.StatusPanels[1] = Format("Units count: %d", unitCount);
    list.StatusPanels[2] = Format("Forms translated: %d of %d", translated, rows.size());
}

}  // namespace tml
