#include "desktop/Gridmodel.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include "desktop/Icons.h"
#include "desktop/Texts.h"

namespace tml {

void TGridModel::Refresh() {
    TGrid& grid = Grid();
    if (shown_ == &grid && revision_ == grid.Revision()) return;
    beginResetModel();
    shown_ = &grid;
    revision_ = grid.Revision();
    rows_ = static_cast<int>(grid.Shown().size());
    endResetModel();
}

int TGridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int TGridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(Grid().Columns.size());
}

QVariant TGridModel::LookAt(int place, int column, int role) const {
    const TGrid& grid = Grid();
    if (!grid.Look) return {};
    const TGridLook look = grid.Look(grid.Shown()[static_cast<std::size_t>(place)]);
    if (role == Qt::ForegroundRole && look.Grey)
        return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
    if (role == Qt::DecorationRole && column == 0 && !look.Picture.empty())
        return PictureOf(ToQt(look.Picture));
    if (role == Qt::ToolTipRole && column == 0 && !look.Hint.empty()) return ToQt(look.Hint);
    if (role != Qt::FontRole || column != look.StruckColumn) return {};
    QFont font;
    font.setStrikeOut(true);
    return font;
}

QVariant TGridModel::data(const QModelIndex& index, int role) const {
    const TGrid& grid = Grid();
    // Between two refreshes the grid may have lost rows.
    if (!index.isValid() || index.row() >= static_cast<int>(grid.Shown().size())) return {};
    const bool isFirst = index.column() == 0;
    const bool isNumber = grid.Columns[static_cast<std::size_t>(index.column())].IsNumber;
    if (role == Qt::DisplayRole || (role == Qt::ToolTipRole && !isFirst))
        return ToQt(grid.Text(index.row(), index.column()));
    if (role == Qt::EditRole)
        return ToQt(grid.Cell(grid.Shown()[static_cast<std::size_t>(index.row())], index.column()));
    if (role == Qt::TextAlignmentRole && isNumber) return int(Qt::AlignRight | Qt::AlignVCenter);
    return LookAt(index.row(), index.column(), role);
}

QVariant TGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return int(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    return ToQt(Grid().Columns.at(static_cast<std::size_t>(section)).Caption);
}

bool TGridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || value == data(index, Qt::EditRole)) return false;
    const int id = Grid().Shown()[static_cast<std::size_t>(index.row())];
    Run([&] { Grid().OnEdit(id, FromQt(value.toString())); });
    return true;
}

Qt::ItemFlags TGridModel::flags(const QModelIndex& index) const {
    const bool editable = index.column() == Grid().EditColumn;
    return QAbstractTableModel::flags(index) | (editable ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

void TGridModel::sort(int column, Qt::SortOrder order) {
    const bool descending = order == Qt::DescendingOrder;
    if (column == Grid().SortColumn() && descending == Grid().SortsDown()) return;
    Run([&] { Grid().SortBy(column, descending); });
}

}  // namespace tml
