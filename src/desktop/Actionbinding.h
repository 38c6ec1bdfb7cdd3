#pragma once

#include <map>
#include <string_view>

#include "windows/Actions.h"

class QAction;
class QToolBar;
class QWidget;

namespace tml {

/// Shows the commands of a window on its tool bar and in the popup menu of its table, and follows them.
class TActionBinding {
  public:
    /// The commands belong to the window's state and outlive this. execute runs one.
    TActionBinding(TActions& actions, QWidget& view, QToolBar& bar, QWidget& table,
                   std::function<void(const TAction& action)> execute);

    /// Captions, hints, and whether they would do something now.
    void Refresh();

  private:
    void Make(TAction& action);
    QAction* MakeMenu(TAction& action);
    void Place(QWidget& target, const std::vector<std::string_view>& names);
    static void Show(QAction& shown, const TAction& action);

    TActions& actions_;
    QWidget& view_;
    std::function<void(const TAction& action)> execute_;
    std::map<std::string_view, QAction*> made_;
};

}  // namespace tml
