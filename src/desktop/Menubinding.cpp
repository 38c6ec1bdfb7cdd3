#include "desktop/Menubinding.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <algorithm>

#include "desktop/Icons.h"
#include "desktop/Texts.h"

namespace tml {
namespace {

using TItems = TMenuBinding::TItems;

bool IsEmptyMenu(const TMenuItem& item) {
    return std::none_of(item.Items.begin(), item.Items.end(), [](const auto& sub) { return sub->Visible; });
}

/// All that is shown of the items, to tell whether they have changed.
QString Signature(const TItems& items) {
    QString text;
    for (const auto& item : items) {
        text += ToQt(item->Name) + '\t' + ToQt(item->Caption) + '\t' + ToQt(item->Hint) +
                QString("\t%1%2%3 %4 %5(")
                    .arg(item->Enabled)
                    .arg(item->Visible)
                    .arg(item->Checked)
                    .arg(item->ShortCut)
                    .arg(reinterpret_cast<quintptr>(item.get()));
        text += Signature(item->Items) + ')';
    }
    return text;
}

}  // namespace

TMenuBinding::TMenuBinding(QWidget* target, std::function<TItems()> source, TRunner& runner, QWidget* keys)
    : target_(target), source_(std::move(source)), runner_(runner), keys_(keys) {
    Refresh();
}

void TMenuBinding::Refresh() {
    if (target_ == nullptr) return;
    const TItems items = source_();
    const QString signature = Signature(items);
    if (signature == shown_) return;
    shown_ = signature;
    // They die later than the new ones look for keys that are taken.
    for (QAction* action : keyed_)
        if (keys_ != nullptr) keys_->removeAction(action);
    keyed_.clear();
    for (QObject* made : made_) {
        if (auto* action = qobject_cast<QAction*>(made)) target_->removeAction(action);
        if (auto* menu = qobject_cast<QMenu*>(made)) target_->removeAction(menu->menuAction());
        made->deleteLater();
    }
    made_.clear();
    Fill(*target_, items);
}

void TMenuBinding::SetAccelerators(bool on) {
    if (on == accelerators_) return;
    accelerators_ = on;
    shown_.clear();
    Refresh();
}

void TMenuBinding::Fill(QWidget& target, const TItems& items) {
    for (const auto& item : items)
        if (item->Visible) AddItem(target, item);
}

void TMenuBinding::AddItem(QWidget& target, const std::shared_ptr<TMenuItem>& item) {
    const bool isTop = &target == target_;
    if (!item->Items.empty()) {
        QString caption = ToQt(item->Caption);
        if (isTop && !accelerators_) caption.remove('&');
        auto* menu = new QMenu(caption, &target);
        menu->setObjectName(ToQt(item->Name));
        menu->setToolTipsVisible(true);
        menu->menuAction()->setEnabled(item->Enabled && !IsEmptyMenu(*item));
        target.addAction(menu->menuAction());
        if (isTop) made_ += menu;
        Fill(*menu, item->Items);
        return;
    }
    auto* action = new QAction(IconOf(item->Name), ToQt(item->Caption), &target);
    action->setObjectName(ToQt(item->Name));
    action->setSeparator(item->Caption == "-");
    // A separator with a text would be drawn as a heading.
    if (action->isSeparator()) action->setText({});
    action->setEnabled(item->Enabled);
    action->setCheckable(item->Checked);
    action->setChecked(item->Checked);
    SetHint(*action, ToQt(item->Hint));
    SetKeys(*action, item->ShortCut);
    // Not at once: the command may take away the menu that it was chosen from. By way of the owner: a menu
    // that pops up is gone when the call comes.
    QObject::connect(
        action, &QAction::triggered, target_->parentWidget(),
        [&runner = runner_, weak = std::weak_ptr(item)] {
            runner.Run([&weak] {
                if (const auto clicked = weak.lock()) clicked->Click();
            });
        },
        Qt::QueuedConnection);
    target.addAction(action);
    if (isTop) made_ += action;
}

void TMenuBinding::SetHint(QAction& action, const QString& hint) {
    if (hint.isEmpty()) return;
    action.setToolTip(hint.section('|', 0, 0));
    action.setStatusTip(hint.section('|', -1));
}

void TMenuBinding::SetKeys(QAction& action, TShortCut shortCut) {
    if (shortCut == 0) return;
    const QKeySequence keys = KeysOf(shortCut);
    if (qobject_cast<QToolBar*>(target_) != nullptr) {
        // The entry in the menu has the keys: a second action with them would make both ambiguous.
        action.setToolTip(action.toolTip() + " (" + keys.toString(QKeySequence::NativeText) + ")");
        return;
    }
    action.setShortcut(keys);
    if (keys_ == nullptr) return;
    action.setShortcutContext(Qt::WidgetWithChildrenShortcut);
    // A command that stands in two menus answers to its keys once.
    const auto others = keys_->actions();
    const bool known = std::any_of(others.begin(), others.end(), [&](const QAction* other) {
        return other->shortcut() == action.shortcut();
    });
    if (known) return;
    keys_->addAction(&action);
    keyed_ += &action;
}

}  // namespace tml
