#include "desktop/Rowtable.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

namespace tml {
namespace {

constexpr int kBand = 3;   ///< pixels of the bar in front of the current row
constexpr int kTint = 40;  ///< of 255, the highlight's share in the current row

/// Tints the current row and puts a bar in front of it, so that it is told from the selected ones.
class TRowDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const auto* table = static_cast<const QTableView*>(parent());
        const bool current = table->currentIndex().row() == index.row();
        if (current && (option.state & QStyle::State_Selected) == 0) {
            QColor tint = option.palette.color(QPalette::Highlight);
            tint.setAlpha(kTint);
            painter->fillRect(option.rect, tint);
        }
        QStyleOptionViewItem plain = option;
        plain.state &= ~QStyle::State_HasFocus;
        QStyledItemDelegate::paint(painter, plain, index);
        if (!current || index.column() != 0) return;
        painter->fillRect(option.rect.left(), option.rect.top(), kBand, option.rect.height(),
                          option.palette.link());
    }
};

}  // namespace

TRowTable::TRowTable(QWidget* parent) : QTableView(parent) {
    setItemDelegate(new TRowDelegate(this));
}

void TRowTable::selectAll() {
    // What many ranges become at once, the selection compares each with each.
    clearSelection();
    QTableView::selectAll();
}

void TRowTable::CommitEditor() {
    if (state() != EditingState) return;
    QWidget* editor = indexWidget(currentIndex());
    if (editor == nullptr) return;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
}

QItemSelectionModel::SelectionFlags TRowTable::selectionCommand(const QModelIndex& index,
                                                                const QEvent* event) const {
    const auto* input = dynamic_cast<const QInputEvent*>(event);
    if (input == nullptr) return QItemSelectionModel::NoUpdate;
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
