#pragma once

#include <QSortFilterProxyModel>
#include <functional>
#include <vector>

namespace tml {

/// Sorts the rows of a table and shows those of which a cell contains a text, without regard to case.
class TRowFilter : public QSortFilterProxyModel {
  public:
    TRowFilter();

    /// "" shows all rows. Views see new rows: current and selected ones are forgotten.
    void SetText(const QString& text);
    /// Says which rows (0-based, of the source) are shown, for a source that knows itself; there is no text
    /// then, and Refilter shows that it says otherwise.
    std::function<bool(int row)> IsShown;
    void Refilter();
    /// Where a row of the source stands; the first row where it is not shown; invalid while none is.
    QModelIndex RowOrFirst(int sourceRow) const;

    void setSourceModel(QAbstractItemModel* source) override;
    void sort(int column, Qt::SortOrder order) override;

  protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

  private:
    void Rank(int column) const;

    QString text_;
    mutable std::vector<int> ranks_;  ///< of the source's rows in the sorted column; empty when not known
};

}  // namespace tml
