#include "desktop/Filterbox.h"

#include <QLineEdit>
#include <QShortcut>

#include "desktop/Gridmodel.h"
#include "desktop/Rowtable.h"
#include "desktop/Texts.h"

namespace tml {

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
    // Of the box alone: in the table the key goes down.
    new QShortcut(
        Qt::Key_Down, &box, [&table] { table.setFocus(); }, Qt::WidgetShortcut);
}

QString FilterCount(const TRowTable& table) {
    const TGrid& grid = static_cast<const TGridModel*>(table.model())->Grid();
    return QString("%1 of %2").arg(grid.Shown().size()).arg(grid.Rows().size());
}

}  // namespace tml
