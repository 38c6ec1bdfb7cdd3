#include "desktop/Filterbox.h"

#include <QLineEdit>
#include <QShortcut>

#include "desktop/Gridmodel.h"
#include "desktop/Rowtable.h"
#include "desktop/Texts.h"

namespace tml {

void LeaveByKeys(QLineEdit& box, QWidget& list) {
    // Of the box alone: in the list the keys do what they do there, elsewhere Enter means the default button.
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_Enter})
        new QShortcut(
            key, &box, [&list] { list.setFocus(); }, Qt::WidgetShortcut);
}

void BindFilter(QWidget& view, QLineEdit& box, TRowTable& table, TRunner& runner,
                std::function<void(const std::string& text)> apply) {
    QObject::connect(&box, &QLineEdit::textChanged, &box,
                     [&runner, apply = std::move(apply)](const QString& text) {
                         runner.Run([&] { apply(FromQt(text)); });
                     });
    QObject::connect(new QShortcut(QKeySequence::Find, &view), &QShortcut::activated, &box, [&box] {
        box.setFocus();
        box.selectAll();
    });
    LeaveByKeys(box, table);
}

QString FilterCount(const TRowTable& table) {
    const TGrid& grid = static_cast<const TGridModel*>(table.model())->Grid();
    return QString("%1 of %2").arg(grid.Shown().size()).arg(grid.Rows().size());
}

}  // namespace tml
