#include "desktop/Componenttree.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QSignalBlocker>
#include <algorithm>

#include "desktop/Icons.h"
#include "desktop/Texts.h"

namespace tml {
namespace {

constexpr int kIndexRole = Qt::UserRole;
constexpr int kLeastWidth = 16;  ///< pixels of the column of the classes

const char* PictureFor(const TTreeComponent& component) {
    if (component.Parent < 0) return "form";
    return component.IsControl ? "control" : "component";
}

QString OriginText(TComponentOrigin origin) {
    switch (origin) {
        case TComponentOrigin::coInherited:
            return "inherited";
        case TComponentOrigin::coFrame:
            return "frame";
        default:
            return {};
    }
}

}  // namespace

TComponentTree::TComponentTree(TFormDesign& design) : design_(design) {
    setObjectName("componentTree");
    setHeaderHidden(true);
    setColumnCount(2);
    header()->setMinimumSectionSize(kLeastWidth);
    // What is too long for its column stands in the hint.
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(1, QHeaderView::Stretch);
    setUniformRowHeights(true);
    setExpandsOnDoubleClick(false);
    setFrameShape(QFrame::NoFrame);
    setSelectionMode(ExtendedSelection);
    connect(this, &QTreeWidget::itemSelectionChanged, this, [this] { OnSelect(SelectedIndexes()); });
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this] { OnEdit(); });
}

void TComponentTree::Refresh() {
    const QSignalBlocker quiet(this);
    if (shown_ != design_.Components()) Build();
    ShowSelection();
}

void TComponentTree::Build() {
    clear();
    items_.clear();
    shown_ = design_.Components();
    for (const TTreeComponent& component : shown_) {
        auto* item = new QTreeWidgetItem({ToQt(component.Name), ToQt(component.ClassName)});
        item->setIcon(0, PictureOf(PictureFor(component)));
        item->setData(0, kIndexRole, static_cast<int>(items_.size()));
        const QString origin = OriginText(component.Origin);
        item->setToolTip(0, ToQt(component.Name + ": " + component.ClassName) +
                                (origin.isEmpty() ? QString() : " (" + origin + ")"));
        QFont font = item->font(0);
        font.setItalic(component.Origin == TComponentOrigin::coInherited);
        for (const int column : {0, 1})
            item->setFont(column, font);
        item->setForeground(1, palette().placeholderText());
        if (component.Parent < 0)
            addTopLevelItem(item);
        else
            items_[component.Parent]->addChild(item);
        items_ += item;
    }
    expandAll();
}

void TComponentTree::ShowSelection() {
    const std::vector<int> selected = design_.Selected();
    if (SelectedIndexes() == selected) return;
    clearSelection();
    for (const int index : selected)
        items_[index]->setSelected(true);
    if (selected.empty()) return;
    setCurrentItem(items_[selected.back()], 0, QItemSelectionModel::NoUpdate);
    scrollToItem(items_[selected.back()]);
}

std::vector<int> TComponentTree::SelectedIndexes() const {
    std::vector<int> indexes = design_.Selected();
    std::erase_if(indexes, [&](int index) { return index >= items_.size() || !items_[index]->isSelected(); });
    for (const QTreeWidgetItem* item : selectedItems()) {
        const int index = item->data(0, kIndexRole).toInt();
        if (std::find(indexes.begin(), indexes.end(), index) == indexes.end()) indexes.push_back(index);
    }
    return indexes;
}

void TComponentTree::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Delete:
            return OnDelete();
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return OnEdit();
        default:
            return QTreeWidget::keyPressEvent(event);
    }
}

void TComponentTree::contextMenuEvent(QContextMenuEvent* event) {
    const bool isKey = event->reason() == QContextMenuEvent::Keyboard && currentItem() != nullptr;
    QTreeWidgetItem* item = isKey ? currentItem() : itemAt(event->pos());
    if (item == nullptr) return;
    if (!item->isSelected()) setCurrentItem(item);
    OnMenu(isKey ? viewport()->mapToGlobal(visualItemRect(item).center()) : event->globalPos());
}

}  // namespace tml
