#pragma once

#include <QAbstractItemDelegate>
#include <QTableView>
#include <functional>
#include <optional>

#include "runtime/Transgrid.h"

namespace tml {

class TTransModel;

/// The table of the translation editor over a TTransModel: a current cell and a rectangle of selected ones.
/// F2, Enter, a double click and typing edit the current cell; Enter ends that and goes down.
class TTransCells : public QTableView {
  public:
    explicit TTransCells(QWidget* parent);

    /// Edits a text of several lines, which a cell has no room for; event is the key that began it, nullptr
    /// for none.
    std::function<void(QEvent* event)> EditBelow;
    /// Told what is being typed in a cell; none once that has ended.
    std::function<void(std::optional<QString> text)> Typing;

    /// Takes what stands in a cell's editor and closes it.
    void CommitEditor();
    /// Shows the rows, the current cell and the selection as they are now.
    void ShowCells();

  protected:
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    /// The current cell stays in sight when a box below takes room.
    void resizeEvent(QResizeEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

  private:
    TTransModel& Rows() const;
    TTransRange Selected() const;
    /// The editor follows what has been clicked or moved to.
    void Tell();

    bool showing_ = false;
};

}  // namespace tml
