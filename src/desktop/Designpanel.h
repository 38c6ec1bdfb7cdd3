#pragma once

#include <QSplitter>
#include <functional>

#include "desktop/Runner.h"
#include "ide/Formdesign.h"

class QLabel;
class QMenu;

namespace tml {

class TComponentTree;
class TInspectorTable;
class TPaletteList;

/// What stands beside the picture of a form: its components, the palette, and the properties of what is
/// selected.
class TDesignPanel : public QSplitter {
  public:
    TDesignPanel(TFormDesign& design, TRunner& runner);

    /// Shows the design as it is now.
    void Refresh();

    // What a person does, here or in the picture.
    void Select(const std::vector<int>& indexes);
    /// What is selected.
    void Edit();
    void Delete();
    void ShowMenu(const QPoint& at);

  private:
    void Run(const std::function<void()>& work);
    /// Once the widget that was clicked is done with the click.
    void RunLater(std::function<void()> work);
    QWidget* MakeInspector();

    TFormDesign& design_;
    TRunner& runner_;
    TComponentTree* tree_;
    TPaletteList* palette_;
    TInspectorTable* inspector_;
    QLabel* title_;
    /// Of the menu that was shown last: what was chosen runs when the menu has gone.
    std::vector<std::shared_ptr<TMenuItem>> menu_;
};

}  // namespace tml
