#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>

#include "desktop/Runner.h"
#include "windows/Controls.h"

class QAction;

namespace tml {

/// Shows the sub-items of a menu item in a menu bar, menu or tool bar and follows them: menus belong to the
/// system, which changes them at any time.
class TMenuBinding {
  public:
    using TItems = std::vector<std::shared_ptr<TMenuItem>>;

    /// source gives the items; target has a parent, which outlives what is chosen. Shortcuts count in the
    /// whole window, or only where keys or a child of it has the focus.
    TMenuBinding(QWidget* target, std::function<TItems()> source, TRunner& runner, QWidget* keys = nullptr);

    /// Makes the actions anew where anything has changed.
    void Refresh();
    /// Off, the entries of a menu bar have no accelerators: another menu bar of the window has the same ones.
    void SetAccelerators(bool on);

  private:
    void Fill(QWidget& target, const TItems& items);
    void AddItem(QWidget& target, const std::shared_ptr<TMenuItem>& item);
    /// hint is "short|long" or one text for both.
    static void SetHint(QAction& action, const QString& hint);
    void SetKeys(QAction& action, TShortCut shortCut);

    QPointer<QWidget> target_;
    std::function<TItems()> source_;
    TRunner& runner_;
    QPointer<QWidget> keys_;
    bool accelerators_ = true;
    QString shown_;
    QList<QObject*> made_;
    QList<QAction*> keyed_;  ///< made ones that keys_ answers to
};

}  // namespace tml
