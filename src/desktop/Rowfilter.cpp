#include "desktop/Rowfilter.h"

#include <QSignalBlocker>
#include <algorithm>
#include <utility>

namespace tml {

TRowFilter::TRowFilter() {
    setDynamicSortFilter(false);
}

void TRowFilter::SetText(const QString& text) {
    text_ = text;
    Refilter();
}

void TRowFilter::Refilter() {
    // Told of each run of rows that goes or comes, a view would look at all others each time.
    beginResetModel();
    ranks_.clear();
    {
        const QSignalBlocker quiet(this);
        invalidate();
    }
    endResetModel();
}

QModelIndex TRowFilter::RowOrFirst(int sourceRow) const {
    const QModelIndex shown = mapFromSource(sourceModel()->index(sourceRow, 0));
    return shown.isValid() ? shown : index(0, 0);
}

void TRowFilter::setSourceModel(QAbstractItemModel* source) {
    connect(source, &QAbstractItemModel::modelAboutToBeReset, this, [this] { ranks_.clear(); });
    QSortFilterProxyModel::setSourceModel(source);
}

void TRowFilter::sort(int column, Qt::SortOrder order) {
    ranks_.clear();
    QSortFilterProxyModel::sort(column, order);
}

bool TRowFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    if (ranks_.empty()) Rank(left.column());
    return ranks_[static_cast<std::size_t>(left.row())] < ranks_[static_cast<std::size_t>(right.row())];
}

/// The source is asked once for each row, not for each comparison.
void TRowFilter::Rank(int column) const {
    const int rows = sourceModel()->rowCount();
    std::vector<std::pair<QString, int>> keys;
    std::vector<int> order;
    for (int row = 0; row < rows; ++row) {
        const QVariant value = sourceModel()->index(row, column).data(sortRole());
        const bool isNumber = value.typeId() == QMetaType::Int;
        keys.emplace_back(isNumber ? QString() : value.toString().toCaseFolded(),
                          isNumber ? value.toInt() : 0);
        order.push_back(row);
    }
    const auto key = [&](int row) -> const auto& {
        return keys[static_cast<std::size_t>(row)];
    };
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return key(a) < key(b); });
    ranks_.resize(keys.size());
    int rank = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (i > 0 && key(order[i - 1]) < key(order[i])) ++rank;
        ranks_[static_cast<std::size_t>(order[i])] = rank;
    }
}

bool TRowFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
    if (IsShown) return IsShown(row);
    if (text_.isEmpty()) return true;
    for (int column = 0; column < sourceModel()->columnCount(parent); ++column)
        if (sourceModel()->index(row, column).data().toString().contains(text_, Qt::CaseInsensitive))
            return true;
    return false;
}

}  // namespace tml
