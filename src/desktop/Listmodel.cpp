#include "desktop/Listmodel.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <QTableView>
#include <algorithm>
#include <functional>
#include <utility>

#include "desktop/Icons.h"
#include "desktop/Texts.h"

namespace tml {
namespace {

constexpr int kDesignCharWidth = 5;  ///< pixels

}  // namespace

void TListModel::Refresh() {
    std::vector<int> ids;
    ids.reserve(static_cast<std::size_t>(list_.Count()));
    for (int row = 0; row < list_.Count(); ++row)
        ids.push_back(list_.Row(row).Id());
    const bool same = ids == shown_ && !shown_.empty();
    if (!same) beginResetModel();
    shown_ = std::move(ids);
    if (!same) endResetModel();
    if (same) Q_EMIT dataChanged(index(0, 0), index(list_.Count() - 1, columnCount({}) - 1));
}

int TListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int TListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(list_.Columns.size());
}

QVariant TListModel::data(const QModelIndex& index, int role) const {
    // Between two refreshes the list may have lost rows.
    if (!index.isValid() || index.row() >= list_.Count()) return {};
    const TListRow& row = list_.Row(index.row());
    if (role == Qt::DecorationRole && index.column() == 0 && row.StateIndex() < pictures_.size())
        return PictureOf(pictures_[row.StateIndex()]);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    return ToQt(row.Cell(static_cast<std::size_t>(index.column())));
}

QVariant TListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return int(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    return ToQt(list_.Columns.at(static_cast<std::size_t>(section)).Caption);
}

void SetUpTable(QTableView& table) {
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setSelectionMode(QAbstractItemView::ExtendedSelection);
    table.setShowGrid(false);
    table.setAlternatingRowColors(true);
    table.setWordWrap(false);
    table.setTabKeyNavigation(false);
    table.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table.verticalHeader()->hide();
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + 8);
    table.horizontalHeader()->setHighlightSections(false);
    table.horizontalHeader()->setStretchLastSection(true);
    table.horizontalHeader()->setMinimumSectionSize(24);
}

int ShownWidth(const QWidget& widget, int designWidth) {
    return designWidth * widget.fontMetrics().averageCharWidth() / kDesignCharWidth;
}

int DesignWidth(const QWidget& widget, int shownWidth) {
    // Rounded up, so that the way there and back leaves a width as it was.
    const int charWidth = widget.fontMetrics().averageCharWidth();
    return (shownWidth * kDesignCharWidth + charWidth - 1) / charWidth;
}

int ContentWidth(const QTableView& table, int column) {
    // To measure all of a thousand rows takes longer than to read them.
    constexpr std::ptrdiff_t kMeasured = 32;
    std::vector<std::pair<qsizetype, int>> lengths;  // with the row
    for (int row = 0; row < table.model()->rowCount(); ++row)
        lengths.emplace_back(table.model()->index(row, column).data().toString().size(), row);
    const auto end = lengths.begin() + std::min(std::ssize(lengths), kMeasured);
    std::partial_sort(lengths.begin(), end, lengths.end(), std::greater<>());
    int width = table.horizontalHeader()->sectionSizeHint(column);
    for (auto longest = lengths.begin(); longest != end; ++longest)
        width =
            std::max(width, table.sizeHintForIndex(table.model()->index(longest->second, column)).width());
    return width + (table.showGrid() ? 1 : 0);
}

void SelectionToList(const QTableView& table, TListRows& list) {
    const auto* selection = table.selectionModel();
    for (int row = 0; row < list.Count(); ++row) {
        TListRow& item = list.Row(row);
        item.Selected = selection->isRowSelected(row, {});
        item.Focused = table.currentIndex().row() == row;
    }
}

void SelectionFromList(QTableView& table, const TListRows& list) {
    auto* selection = table.selectionModel();
    const int last = list.Columns.empty() ? 0 : static_cast<int>(list.Columns.size()) - 1;
    QItemSelection rows;
    int first = -1;
    for (int row = 0; row < list.Count(); ++row) {
        if (!list.Row(row).Selected) continue;
        if (first < 0) first = row;
        rows.select(table.model()->index(row, 0), table.model()->index(row, last));
    }
    const QSignalBlocker quiet(selection);
    selection->select(rows, QItemSelectionModel::ClearAndSelect);
    if (first >= 0 && !selection->isRowSelected(table.currentIndex().row(), {}))
        selection->setCurrentIndex(table.model()->index(first, 0), QItemSelectionModel::NoUpdate);
    table.viewport()->update();
}

}  // namespace tml
