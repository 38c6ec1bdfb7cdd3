#include "desktop/Formslistview.h"

#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

#include "desktop/Texts.h"
#include "ui_Formslistview.h"

namespace tml {
namespace {

constexpr TShortCut kEnter = 0x0D;
constexpr std::array kPanelWidths{120, 120, 220, 50};
const QStringList kStates{"untranslated", "translated"};

/// Selects the first or the last row that is shown, or extends the selection to it.
void GoToEnd(QTableView& table, bool last, bool extend) {
    const int count = table.model()->rowCount();
    int row = last ? count - 1 : 0;
    while (row >= 0 && row < count && table.isRowHidden(row))
        row += last ? -1 : 1;
    const QModelIndex end = table.model()->index(row, 0);
    if (!end.isValid()) return;
    const QModelIndex from = extend && table.currentIndex().isValid() ? table.currentIndex() : end;
    table.selectionModel()->setCurrentIndex(end, QItemSelectionModel::NoUpdate);
    table.selectionModel()->select(QItemSelection(from, end),
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    table.scrollTo(end);
}

/// The end of a path tells more than its beginning.
class TPathDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->textElideMode = Qt::ElideMiddle;
    }
};

}  // namespace

TFormsListView::TFormsListView(TfrmmlLang& form, const TViewServices& services)
    : form_(form),
      runner_(services.Runner),
      ui_(std::make_unique<Ui::Formslistview>()),
      forms_(form.lvFormNames, kStates),
      files_(form.lvExternalFiles, kStates) {
    ui_->setupUi(this);
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        panels_[i] = new QLabel(this);
        panels_[i]->setMinimumWidth(kPanelWidths[i]);
        ui_->statusBar->addWidget(panels_[i]);
    }
    BindList(*ui_->lvFormNames, form_.lvFormNames, forms_);
    BindList(*ui_->lvExternalFiles, form_.lvExternalFiles, files_);
    for (QTableView* table : {ui_->lvFormNames, ui_->lvExternalFiles})
        table->setItemDelegateForColumn(fcFileName, new TPathDelegate(this));
    QHeaderView& filesHeader = *ui_->lvExternalFiles->horizontalHeader();
    filesHeader.setSectionResizeMode(QHeaderView::ResizeToContents);
    filesHeader.setSectionResizeMode(fcFileName, QHeaderView::Stretch);
    filesHeader.setStretchLastSection(false);
    BindHeader();
    BindMenus();
    ui_->lvFormNames->viewport()->installEventFilter(this);
    ui_->filter->installEventFilter(this);
    connect(&forms_, &QAbstractItemModel::modelReset, this, [this] {
        contentWidths_.clear();
        LayOutColumns();
    });
    connect(ui_->filter, &QLineEdit::textChanged, this,
            [this](const QString& text) { runner_.Run([&] { form_.SetFilter(FromQt(text)); }); });
    connect(ui_->lvFormNames, &QTableView::doubleClicked, this,
            [this] { runner_.Run([this] { form_.lvFormNamesDblClick(); }); });
    connect(ui_->pcFormsList, &QTabWidget::currentChanged, this, [this](int page) {
        runner_.Run([&] { form_.pcFormsListChange(static_cast<TFormsPage>(page)); });
    });
    setFocusProxy(ui_->lvFormNames);
}

TFormsListView::~TFormsListView() = default;

void TFormsListView::BindMenus() {
    auto* bar = new QMenuBar(this);
    bar->setNativeMenuBar(false);
    layout()->setMenuBar(bar);
    menus_.push_back(std::make_unique<TMenuBinding>(
        bar, [this] { return form_.MainMenu->Items; }, runner_, this));
    menus_.push_back(std::make_unique<TMenuBinding>(
        ui_->toolBar, [this] { return form_.ToolBar; }, runner_, this));
    auto* popup = new QMenu(this);
    popup->setObjectName("pmEditor");
    menus_.push_back(std::make_unique<TMenuBinding>(
        popup, [this] { return form_.pmEditor->Items; }, runner_, this));
    for (QTableView* table : {ui_->lvFormNames, ui_->lvExternalFiles}) {
        table->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(table, &QWidget::customContextMenuRequested, popup,
                [table, popup](const QPoint& at) { popup->popup(table->viewport()->mapToGlobal(at)); });
    }
}

void TFormsListView::BindList(QTableView& table, TListRows& list, TListModel& model) {
    table.setModel(&model);
    SetUpTable(table);
    table.installEventFilter(this);
    connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, this, [&table, &list, this] {
        runner_.Run([&] {
            SelectionToList(table, list);
            form_.lvFormNamesChange();
        });
    });
}

void TFormsListView::BindHeader() {
    QHeaderView& header = *ui_->lvFormNames->horizontalHeader();
    header.setSectionsClickable(true);
    header.setSortIndicatorShown(true);
    header.setStretchLastSection(false);  // its width is stored too
    connect(&header, &QHeaderView::sectionClicked, this,
            [this](int column) { runner_.Run([&] { form_.lvFormNamesColumnClick(column); }); });
    connect(&header, &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { NoteWidth(column, width); });
}

void TFormsListView::NoteWidth(int column, int width) {
    if (layingOut_) return;
    QHeaderView& header = *ui_->lvFormNames->horizontalHeader();
    auto& columns = form_.lvFormNames.Columns;
    // The first width that is chosen fixes the others where they stand.
    if (form_.HasDesignWidths())
        for (std::size_t i = 0; i + 1 < columns.size(); ++i)
            columns[i].Width = DesignWidth(*this, header.sectionSize(static_cast<int>(i)));
    columns.at(static_cast<std::size_t>(column)).Width = DesignWidth(*this, width);
    LayOutColumns();
}

void TFormsListView::MeasureColumns() {
    const QTableView& table = *ui_->lvFormNames;
    for (int i = 0; i < table.horizontalHeader()->count(); ++i)
        contentWidths_.push_back(ContentWidth(table, i));
}

void TFormsListView::LayOutColumns() {
    if (layingOut_) return;
    layingOut_ = true;
    QTableView& table = *ui_->lvFormNames;
    QHeaderView& header = *table.horizontalHeader();
    const auto& columns = form_.lvFormNames.Columns;
    const int last = header.count() - 1;
    int left = table.viewport()->width();
    if (form_.HasDesignWidths() && contentWidths_.empty()) MeasureColumns();
    for (int i = 0; i < last; ++i) {
        const auto column = static_cast<std::size_t>(i);
        header.resizeSection(
            i, form_.HasDesignWidths() ? contentWidths_[column] : ShownWidth(*this, columns[column].Width));
        left -= header.sectionSize(i);
    }
    const int least = header.sectionSizeHint(last);
    if (form_.HasDesignWidths() && left < least) {
        // Of a path enough is seen where its middle is left out.
        const int path =
            std::max(header.sectionSize(fcFileName) + left - least, header.sectionSizeHint(fcFileName));
        left += header.sectionSize(fcFileName) - path;
        header.resizeSection(fcFileName, path);
    }
    header.resizeSection(last, std::max(left, least));
    layingOut_ = false;
}

void TFormsListView::Refresh() {
    for (const auto& menu : menus_)
        menu->Refresh();
    // Docked, it stands in one window with the IDE's menu bar.
    menus_.front()->SetAccelerators(qobject_cast<QMainWindow*>(window()) == nullptr);
    RefreshHeader();
    RefreshList(*ui_->lvFormNames, form_.lvFormNames, forms_);
    RefreshList(*ui_->lvExternalFiles, form_.lvExternalFiles, files_);
    RefreshFilter();
    const QSignalBlocker quiet(ui_->pcFormsList);
    ui_->pcFormsList->setCurrentIndex(static_cast<int>(form_.Context.Rows.Page));
    for (std::size_t i = 0; i < panels_.size(); ++i)
        panels_[i]->setText(ToQt(form_.Context.Rows.StatusPanels[i]));
}

void TFormsListView::RefreshHeader() {
    QHeaderView& header = *ui_->lvFormNames->horizontalHeader();
    const TSettingValues& settings = form_.Context.Settings.Get();
    header.setSortIndicator(settings.SortedColumn,
                            settings.SortOrder > 0 ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void TFormsListView::RefreshFilter() {
    const QSignalBlocker quiet(ui_->filter);
    if (ui_->filter->text() != ToQt(form_.Filter)) ui_->filter->setText(ToQt(form_.Filter));
    for (int row = 0; row < forms_.rowCount({}); ++row)
        ui_->lvFormNames->setRowHidden(row, !form_.IsShown(row));
}

void TFormsListView::RefreshList(QTableView& table, TListRows& list, TListModel& model) {
    model.Refresh();
    SelectionFromList(table, list);
    int& wanted = form_.Context.Rows.ScrolledTo;
    for (int row = 0; wanted != 0 && row < list.Count(); ++row)
        if (list.Row(row).Id() == wanted) {
            table.scrollTo(model.index(row, 0));
            wanted = 0;
        }
}

bool TFormsListView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && watched == ui_->lvFormNames->viewport()) LayOutColumns();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) contentWidths_.clear();
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        auto* table = qobject_cast<QTableView*>(watched);
        if (table != nullptr && KeyPressed(*table, key)) return true;
        if (table == nullptr && (key.key() == Qt::Key_Down || key.key() == Qt::Key_Escape)) {
            if (key.key() == Qt::Key_Escape)
                ui_->filter->clear();
            else
                GoToEnd(*ui_->lvFormNames, false, false);
            ui_->lvFormNames->setFocus();
            return true;
        }
    }
    return TView::eventFilter(watched, event);
}

bool TFormsListView::KeyPressed(QTableView& table, const QKeyEvent& key) {
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
        runner_.Run([this] { form_.lvFormNamesKeyDown(kEnter); });
        return true;
    }
    if (key.key() == Qt::Key_Home || key.key() == Qt::Key_End) {
        GoToEnd(table, key.key() == Qt::Key_End, key.modifiers().testFlag(Qt::ShiftModifier));
        return true;
    }
    if (key.key() == Qt::Key_Escape && &table == ui_->lvFormNames) {
        ui_->filter->clear();
        return true;
    }
    const bool types = !key.text().isEmpty() && key.text().at(0).isPrint() && key.text() != " " &&
                       (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
    if (!types || &table != ui_->lvFormNames) return false;
    ui_->filter->setFocus();
    ui_->filter->insert(key.text());
    return true;
}

}  // namespace tml
