#include "desktop/Inspectortable.h"

#include <QComboBox>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QStyledItemDelegate>
#include <QTimer>
#include <algorithm>

#include "base/Utf8.h"
#include "desktop/Texts.h"

namespace tml {
namespace {

constexpr int kDialogWidth = 24;  ///< pixels
constexpr int kRowPadding = 6;

/// A list whose values may be typed too; tells when one has been chosen from the list that was dropped down.
class TValueBox : public QComboBox {
  public:
    TValueBox(QWidget* parent, const QStringList& values, std::function<void(TValueBox&)> chosen)
        : QComboBox(parent) {
        setEditable(true);
        setInsertPolicy(NoInsert);
        addItems(values);
        // Enter in the line tells of an entry as well, and ends the editing by itself.
        connect(this, &QComboBox::activated, this, [this, chosen = std::move(chosen)] {
            if (isDropped_) chosen(*this);
        });
    }
    void showPopup() override {
        isDropped_ = true;
        QComboBox::showPopup();
    }
    void hidePopup() override {
        QComboBox::hidePopup();
        // Not at once: the entry is told of behind this.
        QTimer::singleShot(0, this, [this] { isDropped_ = false; });
    }

  private:
    bool isDropped_ = false;
};

/// Edits a value in a line, or in a list where the property offers values.
class TValueDelegate : public QStyledItemDelegate {
  public:
    TValueDelegate(QObject* parent, const TInspectorModel& model)
        : QStyledItemDelegate(parent), model_(model) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                          const QModelIndex& index) const override {
        if (!model_.Row(index).HasList) return new QLineEdit(parent);
        return new TValueBox(parent, model_.Values(index), [this](TValueBox& box) {
            auto* self = const_cast<TValueDelegate*>(this);
            Q_EMIT self->commitData(&box);
            Q_EMIT self->closeEditor(&box);
        });
    }
    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        const QString text = index.data(Qt::EditRole).toString();
        auto* box = qobject_cast<QComboBox*>(editor);
        auto* edit = box != nullptr ? box->lineEdit() : static_cast<QLineEdit*>(editor);
        // Not while the person types: a value may be shown anew at any time.
        if (edit->isModified()) return;
        if (box != nullptr) box->setCurrentIndex(box->findText(text, Qt::MatchFixedString));
        edit->setText(text);
        edit->selectAll();
    }
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override {
        const auto* box = qobject_cast<QComboBox*>(editor);
        const QString text = box != nullptr ? box->currentText() : static_cast<QLineEdit*>(editor)->text();
        model->setData(index, text, Qt::EditRole);
    }

  private:
    const TInspectorModel& model_;
};

}  // namespace

// --- rows

const TInspectedProperty& TInspectorModel::Row(const QModelIndex& index) const {
    return rows_[static_cast<std::size_t>(index.row())];
}

QStringList TInspectorModel::Values(const QModelIndex& index) const {
    return ToQt(inspector_.Values(Row(index).Name));
}

bool TInspectorModel::Refresh() {
    const std::vector<TInspectedProperty>& rows = inspector_.Rows();
    const bool isSame = std::equal(rows.begin(), rows.end(), rows_.begin(), rows_.end(),
                                   [](const auto& one, const auto& other) { return one.Name == other.Name; });
    if (!isSame) beginResetModel();
    rows_ = rows;
    if (!isSame)
        endResetModel();
    else if (!rows_.empty())
        Q_EMIT dataChanged(index(0, 0), index(static_cast<int>(rows_.size()) - 1, clCount - 1));
    return isSame;
}

int TInspectorModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int TInspectorModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : clCount;
}

QVariant TInspectorModel::data(const QModelIndex& index, int role) const {
    const TInspectedProperty& row = Row(index);
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            if (index.column() == clDialog) return row.HasDialog ? QString(QChar(0x2026)) : QString();
            return ToQt(index.column() == clName ? row.Name : row.Value);
        case Qt::ToolTipRole:
            return index.column() == clDialog && row.HasDialog ? "Edit (Ctrl+Enter)" : ToQt(row.Value);
        case Qt::TextAlignmentRole:
            if (index.column() == clDialog) return Qt::AlignCenter;
            return {};
        case Qt::FontRole: {
            QFont font;
            font.setItalic(!row.IsHeld && !row.Value.empty());
            return font;
        }
        default:
            return {};
    }
}

bool TInspectorModel::setData(const QModelIndex& index, const QVariant& value, int /*role*/) {
    if (FromQt(value.toString()) == Row(index).Value) return false;
    // Later: the editor that it comes from is still open, and a message must not stand over it.
    QTimer::singleShot(
        0, this, [this, name = Row(index).Name, text = FromQt(value.toString())] { OnSet(name, text); });
    return true;
}

Qt::ItemFlags TInspectorModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == clValue && Row(index).CanType ? flags | Qt::ItemIsEditable : flags;
}

// --- the table

TInspectorTable::TInspectorTable(TInspector& inspector) : inspector_(inspector), model_(inspector) {
    setObjectName("inspector");
    setModel(&model_);
    setItemDelegateForColumn(TInspectorModel::clValue, new TValueDelegate(this, model_));
    setFrameShape(QFrame::NoFrame);
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed | SelectedClicked);
    setTabKeyNavigation(false);
    setWordWrap(false);
    horizontalHeader()->hide();
    horizontalHeader()->setMinimumSectionSize(kDialogWidth);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
    model_.OnSet = [this](const std::string& property, const std::string& text) { OnSet(property, text); };
    connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (index.column() == TInspectorModel::clDialog) OpenDialog(index);
    });
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.column() == TInspectorModel::clName || !model_.Row(index).CanType) OpenDialog(index);
    });
}

void TInspectorTable::Refresh() {
    const QModelIndex current = currentIndex();
    const std::string name = current.isValid() ? model_.Row(current).Name : std::string();
    if (model_.Refresh()) return;
    ShareWidth();
    for (int row = 0; row < model_.rowCount({}); ++row) {
        const QModelIndex index = model_.index(row, TInspectorModel::clValue);
        if (SameText(model_.Row(index).Name, name)) return setCurrentIndex(index);
    }
}

void TInspectorTable::OpenDialog(const QModelIndex& index) {
    if (!index.isValid() || !model_.Row(index).HasDialog) return;
    // Later: the table is in the middle of a click.
    QTimer::singleShot(0, this, [this, name = model_.Row(index).Name] { OnEdit(name); });
}

/// What is typed goes to the value wherever the current cell is.
bool TInspectorTable::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool isKey = trigger == EditKeyPressed || trigger == AnyKeyPressed;
    return QTableView::edit(isKey ? index.siblingAtColumn(TInspectorModel::clValue) : index, trigger, event);
}

void TInspectorTable::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const QModelIndex index = currentIndex();
    // The Enter that ends the editing of a value comes here too.
    if (!isEnter || !index.isValid() || state() == EditingState) return QTableView::keyPressEvent(event);
    if (event->modifiers().testFlag(Qt::ControlModifier) || !model_.Row(index).CanType)
        OpenDialog(index);
    else
        QTableView::edit(index.siblingAtColumn(TInspectorModel::clValue));
}

void TInspectorTable::contextMenuEvent(QContextMenuEvent* event) {
    const bool isKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = isKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid()) return;
    setCurrentIndex(index);
    ShowMenu(index, isKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos());
}

void TInspectorTable::ShowMenu(const QModelIndex& index, const QPoint& at) {
    const TInspectedProperty& row = model_.Row(index);
    auto* menu = new QMenu(this);
    menu->setObjectName("inspectorMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QPersistentModelIndex place = index;
    QAction* dialog = menu->addAction("&Edit...", this, [this, place] { OpenDialog(place); });
    dialog->setEnabled(row.HasDialog);
    // Later: a message must not stand over the menu.
    QAction* reset = menu->addAction("Reset to &Default", this, [this, name = row.Name] {
        QTimer::singleShot(0, this, [this, name] { OnReset(name); });
    });
    reset->setEnabled(inspector_.CanReset(row.Name));
    menu->popup(at);
}

void TInspectorTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    ShareWidth();
}

void TInspectorTable::ShareWidth() {
    const int room = viewport()->width() - kDialogWidth;
    const int names = std::min(sizeHintForColumn(TInspectorModel::clName) + kRowPadding, room / 2);
    setColumnWidth(TInspectorModel::clName, names);
    setColumnWidth(TInspectorModel::clValue, room - names);
    setColumnWidth(TInspectorModel::clDialog, kDialogWidth);
}

}  // namespace tml
