#include "desktop/Actionbinding.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>

#include "desktop/Icons.h"
#include "desktop/Texts.h"

namespace tml {

TActionBinding::TActionBinding(TActions& actions, QWidget& view, QToolBar& bar, QWidget& table,
                               std::function<void(const TAction& action)> execute)
    : actions_(actions), view_(view), execute_(std::move(execute)) {
    for (TAction& action : actions_.All)
        Make(action);
    Place(bar, actions_.ToolBar);
    Place(table, actions_.Popup);
    table.setContextMenuPolicy(Qt::ActionsContextMenu);
}

void TActionBinding::Make(TAction& action) {
    if (!action.Items.empty()) {
        made_[action.Name] = MakeMenu(action);
        return;
    }
    auto* made = new QAction(IconOf(action.Name), ToQt(action.Caption), &view_);
    made->setObjectName(ToQt(action.Name));
    made->setShortcut(KeysOf(TextToShortCut(action.ShortCut)));
    if (!action.ToolText.empty()) made->setIconText(ToQt(action.ToolText));
    if (action.KeysAnywhere)
        view_.addAction(made);
    else
        made->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(made, &QAction::triggered, &view_, [this, &action] { execute_(action); });
    made_[action.Name] = made;
}

QAction* TActionBinding::MakeMenu(TAction& action) {
    auto* menu = new QMenu(ToQt(action.Caption), &view_);
    menu->setObjectName(ToQt(action.Name));
    for (TAction& item : action.Items)
        QObject::connect(menu->addAction(ToQt(item.Caption)), &QAction::triggered, &view_,
                         [this, &item] { execute_(item); });
    return menu->menuAction();
}

void TActionBinding::Place(QWidget& target, const std::vector<std::string_view>& names) {
    for (const std::string_view name : names) {
        QAction* action = name.empty() ? new QAction(&target) : made_.at(name);
        if (name.empty()) action->setSeparator(true);
        target.addAction(action);
    }
}

void TActionBinding::Refresh() {
    for (const TAction& action : actions_.All)
        Show(*made_.at(action.Name), action);
}

void TActionBinding::Show(QAction& shown, const TAction& action) {
    shown.setText(ToQt(action.Caption));
    shown.setEnabled(!action.IsEnabled || action.IsEnabled());
    QString tip = action.Hint.empty() ? shown.text().remove('&') : ToQt(action.Hint);
    if (!shown.shortcut().isEmpty()) tip += " (" + shown.shortcut().toString(QKeySequence::NativeText) + ")";
    shown.setToolTip(tip);
}

}  // namespace tml
