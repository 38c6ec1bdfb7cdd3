#include "desktop/Transcells.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QStyledItemDelegate>

#include "desktop/Transmodel.h"

namespace tml {
namespace {

/// Texts are shown and written in the language's direction.
class TCellDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override {
        QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
        editor->setLayoutDirection(DirectionOf(index));
        auto* cells = static_cast<TTransCells*>(this->parent());
        if (auto* line = qobject_cast<QLineEdit*>(editor))
            connect(line, &QLineEdit::textEdited, cells,
                    [cells](const QString& text) { cells->Typing(text); });
        return editor;
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->direction = DirectionOf(index);
    }

  private:
    static Qt::LayoutDirection DirectionOf(const QModelIndex& index) {
        const bool mirrored = static_cast<const TTransModel*>(index.model())->IsRightToLeft(index.column());
        return mirrored ? Qt::RightToLeft : Qt::LeftToRight;
    }
};

}  // namespace

TTransCells::TTransCells(QWidget* parent) : QTableView(parent) {
    setItemDelegate(new TCellDelegate(this));
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    connect(this, &QAbstractItemView::activated, this,
            [this](const QModelIndex& index) { edit(index, AllEditTriggers, nullptr); });
}

TTransModel& TTransCells::Rows() const {
    return *static_cast<TTransModel*>(model());
}

// --- editing

bool TTransCells::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool wanted = trigger == AllEditTriggers || (editTriggers() & trigger) != 0;
    // A key that only moves or is a command edits nothing.
    const bool isText = trigger != AnyKeyPressed || !static_cast<QKeyEvent*>(event)->text().isEmpty();
    if (wanted && isText && index.isValid() && state() != EditingState &&
        (model()->flags(index) & Qt::ItemIsEditable) != 0 && Rows().HasLines(index)) {
        EditBelow(trigger == AnyKeyPressed ? event : nullptr);
        return true;
    }
    return QTableView::edit(index, trigger, event);
}

void TTransCells::CommitEditor() {
    if (state() != EditingState) return;
    QWidget* editor = indexWidget(currentIndex());
    if (editor == nullptr) return;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void TTransCells::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    const QModelIndex below = currentIndex().sibling(currentIndex().row() + 1, currentIndex().column());
    QTableView::closeEditor(editor, hint);
    Typing(std::nullopt);
    if (hint == QAbstractItemDelegate::SubmitModelCache && below.isValid()) setCurrentIndex(below);
}

void TTransCells::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    scrollTo(currentIndex());
}

// --- current cell and selection

TTransRange TTransCells::Selected() const {
    TTransRange range{currentIndex().row(), currentIndex().row(), currentIndex().column(),
                      currentIndex().column()};
    for (const QItemSelectionRange& part : selectionModel()->selection()) {
        range.FirstRow = std::min(range.FirstRow, part.top());
        range.LastRow = std::max(range.LastRow, part.bottom());
        range.FirstColumn = std::min(range.FirstColumn, part.left());
        range.LastColumn = std::max(range.LastColumn, part.right());
    }
    return range;
}

void TTransCells::Tell() {
    // While one of the two is on its way the other is only half of the news.
    if (showing_ || !selectionModel()->isSelected(currentIndex())) return;
    const TTransRange range = Selected();
    if (range == Rows().Form().Grid().Selection()) return;
    Rows().Run([&] {
        if (range.IsOne())
            Rows().Form().SetCurrent(range.FirstRow, range.FirstColumn);
        else
            Rows().Form().Select(range);
    });
}

void TTransCells::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    Tell();
}

void TTransCells::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    Tell();
}

void TTransCells::ShowCells() {
    if (showing_) return;
    showing_ = true;
    Rows().Refresh();
    const TTransGrid& grid = Rows().Form().Grid();
    if (grid.HasRow() && (!currentIndex().isValid() || Selected() != grid.Selection())) {
        const TTransRange& range = grid.Selection();
        const QItemSelection selection(model()->index(range.FirstRow, range.FirstColumn),
                                       model()->index(range.LastRow, range.LastColumn));
        selectionModel()->setCurrentIndex(model()->index(grid.Place(), grid.Column()),
                                          QItemSelectionModel::NoUpdate);
        selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
        scrollTo(currentIndex());
    }
    showing_ = false;
}

}  // namespace tml
