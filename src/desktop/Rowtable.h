#pragma once

#include <QTableView>

namespace tml {

/// A table with a current row and, apart from it, a set of selected rows: a plain click and the cursor keys
/// only move the current row, CTRL, SHIFT and the space bar change the set.
class TRowTable : public QTableView {
  public:
    explicit TRowTable(QWidget* parent);

    void selectAll() override;
    /// Takes what stands in a cell's editor and closes it.
    void CommitEditor();

  protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
};

}  // namespace tml
