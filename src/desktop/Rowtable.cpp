#include "desktop/Rowtable.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyledItemDelegate>

#include "desktop/Gridmodel.h"
#include "desktop/Texts.h"

namespace tml {
namespace {

constexpr int kBand = 3;   ///< pixels of the bar in front of the current row
constexpr int kTint = 40;  ///< of 255, the highlight's share in the current row

/// Tints the current row and puts a bar in front of it, so that it is told from the selected ones. Its
/// editors tell the grid what is typed.
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

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override {
        QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
        const auto* model = static_cast<const TGridModel*>(index.model());
        const int id = model->Grid().Shown()[static_cast<std::size_t>(index.row())];
        if (auto* line = qobject_cast<QLineEdit*>(editor); line != nullptr && model->Grid().OnTyping)
            connect(line, &QLineEdit::textEdited, line, [model, id](const QString& text) {
                model->Run([&] { model->Grid().OnTyping(id, FromQt(text)); });
            });
        return editor;
    }
};

std::vector<int> IdsOf(const TGrid& grid, const QItemSelection& selection) {
    std::vector<int> ids;
    for (const QItemSelectionRange& range : selection)
        for (int row = range.top(); row <= range.bottom(); ++row)
            ids.push_back(grid.Shown()[static_cast<std::size_t>(row)]);
    return ids;
}

/// Neighbours are one range, so that the cost stays that of the rows.
QItemSelection SelectionOf(const TGrid& grid, const QAbstractItemModel& model) {
    const auto isSelected = [&](int place) {
        return grid.IsSelected(grid.Shown()[static_cast<std::size_t>(place)]);
    };
    const int count = model.rowCount();
    QItemSelection selection;
    for (int first = 0; first < count; ++first) {
        if (!isSelected(first)) continue;
        int last = first;
        while (last + 1 < count && isSelected(last + 1))
            ++last;
        selection.select(model.index(first, 0), model.index(last, model.columnCount() - 1));
        first = last;
    }
    return selection;
}

}  // namespace

TRowTable::TRowTable(QWidget* parent) : QTableView(parent) {
    setItemDelegate(new TRowDelegate(this));
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    connect(this, &QAbstractItemView::activated, this,
            [this](const QModelIndex& index) { edit(index, AllEditTriggers, nullptr); });
}

TGridModel& TRowTable::Rows() const {
    return *static_cast<TGridModel*>(model());
}

void TRowTable::selectAll() {
    // What many ranges become at once, the selection compares each with each.
    clearSelection();
    QTableView::selectAll();
}

// --- editing

bool TRowTable::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const int column = Rows().Grid().EditColumn;
    return QTableView::edit(column < 0 ? index : index.siblingAtColumn(column), trigger, event);
}

void TRowTable::CommitEditor() {
    if (state() != EditingState) return;
    QWidget* editor = indexWidget(currentIndex().siblingAtColumn(Rows().Grid().EditColumn));
    if (editor == nullptr) return;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void TRowTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    QTableView::closeEditor(editor, hint);
    // What was said of the typed text is over.
    Rows().Run([this] { Rows().Grid().SetCurrent(Rows().Grid().Current()); });
}

// --- current row and selection

QItemSelectionModel::SelectionFlags TRowTable::selectionCommand(const QModelIndex& index,
                                                                const QEvent* event) const {
    const auto* input = dynamic_cast<const QInputEvent*>(event);
    // Where no set can be selected the current row is all there is.
    if (input == nullptr || selectionMode() == SingleSelection) return QItemSelectionModel::NoUpdate;
    const bool adds = input->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
    const bool isKey = dynamic_cast<const QKeyEvent*>(event) != nullptr;
    if (isKey && !adds) return QItemSelectionModel::Clear;
    return QTableView::selectionCommand(index, event);
}

void TRowTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    viewport()->update();
    if (showing_ || !current.isValid()) return;
    const int id = Rows().Grid().Shown()[static_cast<std::size_t>(current.row())];
    Rows().Run([&] { Rows().Grid().SetCurrent(id); });
}

void TRowTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    if (showing_ || (selected.isEmpty() && deselected.isEmpty())) return;
    TGrid& grid = Rows().Grid();
    Rows().Run([&] { grid.Select(IdsOf(grid, selected), IdsOf(grid, deselected)); });
}

void TRowTable::ShowGrid() {
    if (showing_) return;
    showing_ = true;
    Rows().Refresh();
    const TGrid& grid = Rows().Grid();
    const QItemSelection selection = SelectionOf(grid, *model());
    if (selectionModel()->selection() != selection) {
        // In two steps: in one, each range of the old selection is compared with each of the new one.
        selectionModel()->clearSelection();
        selectionModel()->select(selection, QItemSelectionModel::Select);
    }
    const int place = grid.PlaceOf(grid.Current());
    if (place >= 0 && place != currentIndex().row())
        selectionModel()->setCurrentIndex(model()->index(place, std::max(grid.EditColumn, 0)),
                                          QItemSelectionModel::NoUpdate);
    viewport()->update();
    showing_ = false;
}

}  // namespace tml
