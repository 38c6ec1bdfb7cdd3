#pragma once

#include <QAbstractItemDelegate>
#include <QTableView>

namespace tml {

class TGridModel;

/// A table over a TGridModel, with a current row and, apart from it, a set of selected rows: a click selects
/// what was clicked and nothing else, CTRL and SHIFT add; the cursor keys move the current row and, without
/// CTRL, end the selection. F2, a double click, Enter and typing edit the grid's one editable column wherever
/// the current cell is.
class TRowTable : public QTableView {
  public:
    explicit TRowTable(QWidget* parent);

    void selectAll() override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    /// Takes what stands in a cell's editor and closes it.
    void CommitEditor();
    /// Shows the grid as it is now.
    void ShowGrid();

  protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

  private:
    TGridModel& Rows() const;

    bool showing_ = false;
};

}  // namespace tml
