#pragma once

#include <QTreeWidget>
#include <functional>

#include "ide/Formdesign.h"

namespace tml {

/// The components of a form by what they stand in; shows and changes what is selected.
class TComponentTree : public QTreeWidget {
  public:
    explicit TComponentTree(TFormDesign& design);

    /// The person has selected these, by their indexes.
    std::function<void(const std::vector<int>& indexes)> OnSelect;
    /// Enter or a double click on the current one.
    std::function<void()> OnEdit;
    std::function<void()> OnDelete;
    std::function<void(const QPoint& at)> OnMenu;

    void Refresh();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void Build();
    void ShowSelection();
    /// In the order in which they came.
    std::vector<int> SelectedIndexes() const;

    TFormDesign& design_;
    std::vector<TTreeComponent> shown_;
    QList<QTreeWidgetItem*> items_;  ///< of the components
};

}  // namespace tml
