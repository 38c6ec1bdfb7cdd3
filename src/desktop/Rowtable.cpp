#include "desktop/Rowtable.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

namespace tml {
namespace {

constexpr int kBand = 3;            ///< pixels of the bar in front of the current row
constexpr int kTint = 40;           ///< of 255, the highlight's share in the current row
constexpr int kSelectedTint = 110;  ///< in a selected row

/// Tints the current row and the selected ones, so that both can be seen at once.
class TRowDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const auto* table = static_cast<const QTableView*>(parent());
        QStyleOptionViewItem plain = option;
        const bool current = table->currentIndex().row() == index.row();
        const bool selected = (option.state & QStyle::State_Selected) != 0;
        plain.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
        QColor tint = option.palette.color(QPalette::Highlight);
        tint.setAlpha(selected ? kSelectedTint : current ? kTint : 0);
        painter->fillRect(option.rect, tint);
        QStyledItemDelegate::paint(painter, plain, index);
        if (!current) return;
        const QRect& cell = option.rect;
        if (index.column() == 0)
            painter->fillRect(cell.left(), cell.top(), kBand, cell.height(), option.palette.highlight());
    }
};

}  // namespace

TRowTable::TRowTable(QWidget* parent) : QTableView(parent) {
    setItemDelegate(new TRowDelegate(this));
}

QItemSelectionModel::SelectionFlags TRowTable::selectionCommand(const QModelIndex& index,
                                                                const QEvent* event) const {
    const auto* input = dynamic_cast<const QInputEvent*>(event);
    if (input == nullptr) return QTableView::selectionCommand(index, event);
    const auto* key = dynamic_cast<const QKeyEvent*>(event);
    if (key != nullptr && key->key() == Qt::Key_Space)
        return QItemSelectionModel::Toggle | QItemSelectionModel::Rows;
    if (input->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier))
        return QTableView::selectionCommand(index, event);
    return QItemSelectionModel::NoUpdate;
}

void TRowTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    viewport()->update();
}

}  // namespace tml
