#include "core/Formrow.h"

#include "base/Utf8.h"

namespace tml {

std::string TFormRow::Cell(std::size_t column) const {
    switch (column) {
        case fcFormName:
            return FormName;
        case fcUnitName:
            return UnitName;
        case fcFileName:
            return FileName;
        case fcLanguages:
            return std::to_string(Component.NumLang);
        case fcComponent:
            return Component.ComponentName == InsertedName ? Component.ClassName : Component.ComponentName;
        default:
            return {};
    }
}

void UpdateItem(TFormRow* row, const TFormAnalysis& found) {
    if (row == nullptr) return;
    row->Component = found;
    if (found.NumLang > 0) return;
    row->Component = {};
    row->Component.DerivesFrom = found.DerivesFrom;
}

int CompareRows(const TFormRow& a, const TFormRow& b, int column) {
    // Equal counts never give 0, on purpose: their order is the one in which the sort leaves them.
    if (column == fcLanguages) return a.Component.NumLang <= b.Component.NumLang ? -1 : 1;
    const auto compared = static_cast<std::size_t>(column > 0 && column < fcCount ? column : fcFormName);
    return CompareText(a.Cell(compared), b.Cell(compared));
}

}  // namespace tml
