#include "desktop/Palettelist.h"

#include <QKeyEvent>

#include "desktop/Icons.h"
#include "desktop/Texts.h"

namespace tml {

TPaletteList::TPaletteList() {
    setObjectName("palette");
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setFrameShape(QFrame::NoFrame);
    connect(this, &QTreeWidget::itemDoubleClicked, this,
            [this](const QTreeWidgetItem* item) { Place(item); });
}

void TPaletteList::Show(const std::vector<TClassGroup>& pages) {
    QStringList names;
    for (const TClassGroup& page : pages)
        names += ToQt(page.Title) + ':' + ToQt(TStringList(page.Classes)).join(' ');
    if (names == shown_) return;
    shown_ = names;
    clear();
    for (const TClassGroup& page : pages) {
        auto* top = new QTreeWidgetItem({ToQt(page.Title)});
        for (const std::string& className : page.Classes) {
            auto* item = new QTreeWidgetItem({ToQt(className)});
            item->setIcon(0, PictureOf("component"));
            item->setToolTip(0, "Enter or a double click puts it on the form");
            top->addChild(item);
        }
        addTopLevelItem(top);
    }
    expandAll();
}

void TPaletteList::Place(const QTreeWidgetItem* item) {
    if (item != nullptr && item->parent() != nullptr) OnPlace(FromQt(item->text(0)));
}

void TPaletteList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return Place(currentItem());
    QTreeWidget::keyPressEvent(event);
}

}  // namespace tml
