#include "desktop/Foundmodel.h"

#include <QFont>

#include "desktop/Icons.h"
#include "desktop/Texts.h"

namespace tml {

TFoundModel::TFoundModel(TfrmFound& form)
    : form_(form), adviceIcon_(PictureOf("advice")), ignoreIcon_(PictureOf("ignore")) {
    Refresh();
}

bool TFoundModel::Refresh() {
    const int rows = static_cast<int>(form_.Shown().Rows.size());
    cells_.assign(form_.Shown().Rows.size(), {});
    if (rows == rows_ && form_.ShowsDeleted == showsDeleted_) return false;
    beginResetModel();
    rows_ = rows;
    showsDeleted_ = form_.ShowsDeleted;
    endResetModel();
    return true;
}

int TFoundModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int TFoundModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(TfrmFound::Headers().size());
}

QVariant TFoundModel::CellOf(int row, int column) const {
    const TFoundRow& found = form_.Shown().Rows[static_cast<std::size_t>(row)];
    // A number, so that it is sorted by its value.
    if (column == fcLine) return found.Record.Line + 1;
    QStringList& cells = cells_[static_cast<std::size_t>(row)];
    for (int made = static_cast<int>(cells.size()); made <= fcReplacement; ++made)
        cells += ToQt(TFoundGrid::Cell(found, made));
    return cells[column];
}

QVariant TFoundModel::data(const QModelIndex& index, int role) const {
    const auto& rows = form_.Shown().Rows;
    const auto place = static_cast<std::size_t>(index.row());
    if (!index.isValid() || place >= cells_.size() || rows.size() != cells_.size()) return {};
    const TFoundRow& row = rows[place];
    if (role == Qt::DisplayRole || role == Qt::EditRole) return CellOf(index.row(), index.column());
    if (role == Qt::ToolTipRole && index.column() == fcLine)
        return row.Record.Advice == TAdvice::None ? QVariant() : ToQt(AdviceText(row.Record.Advice));
    if (role == Qt::ToolTipRole) return CellOf(index.row(), index.column());
    if (role == Qt::TextAlignmentRole && index.column() == fcLine)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::DecorationRole && index.column() == fcLine) {
        if (row.Record.MarkedToIgnore) return ignoreIcon_;
        return row.Record.Advice == TAdvice::None ? QVariant() : adviceIcon_;
    }
    if (role == Qt::FontRole && index.column() == fcReplacement && row.Record.MarkedToIgnore) {
        QFont font;
        font.setStrikeOut(true);
        return font;
    }
    return {};
}

QVariant TFoundModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return int(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    return ToQt(TfrmFound::Headers().at(static_cast<std::size_t>(section)));
}

bool TFoundModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || value == data(index, Qt::EditRole)) return false;
    OnEdit(index.row(), FromQt(value.toString()));
    return true;
}

Qt::ItemFlags TFoundModel::flags(const QModelIndex& index) const {
    const bool editable = index.column() == fcID && !showsDeleted_;
    return QAbstractTableModel::flags(index) | (editable ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

}  // namespace tml
