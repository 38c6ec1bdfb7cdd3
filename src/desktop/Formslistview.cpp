#include "desktop/Formslistview.h"

#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include "desktop/Texts.h"
#include "ui_Formslistview.h"

namespace tml {
namespace {

constexpr TShortCut kEnter = 0x0D;
constexpr std::array kPanelWidths{120, 120, 220, 50};
const QStringList kStates{"untranslated", "translated"};

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
    ui_->lvFormNames->setItemDelegateForColumn(fcFileName, new TPathDelegate(this));
    BindHeader();
    BindMenus();
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
    connect(&header, &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        form_.lvFormNames.Columns.at(static_cast<std::size_t>(column)).Width = DesignWidth(*this, width);
    });
}

void TFormsListView::Refresh() {
    for (const auto& menu : menus_)
        menu->Refresh();
    // Docked, it stands in one window with the IDE's menu bar.
    menus_.front()->SetAccelerators(qobject_cast<QMainWindow*>(window()) == nullptr);
    RefreshHeader();
    RefreshList(*ui_->lvFormNames, form_.lvFormNames, forms_);
    RefreshList(*ui_->lvExternalFiles, form_.lvExternalFiles, files_);
    const QSignalBlocker quiet(ui_->pcFormsList);
    ui_->pcFormsList->setCurrentIndex(static_cast<int>(form_.Context.Rows.Page));
    for (std::size_t i = 0; i < panels_.size(); ++i)
        panels_[i]->setText(ToQt(form_.Context.Rows.StatusPanels[i]));
}

void TFormsListView::RefreshHeader() {
    QHeaderView& header = *ui_->lvFormNames->horizontalHeader();
    const QSignalBlocker quiet(&header);
    const auto& columns = form_.lvFormNames.Columns;
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (header.count() > static_cast<int>(i))
            header.resizeSection(static_cast<int>(i), ShownWidth(*this, columns[i].Width));
    const TSettingValues& settings = form_.Context.Settings.Get();
    header.setSortIndicator(settings.SortedColumn,
                            settings.SortOrder > 0 ? Qt::AscendingOrder : Qt::DescendingOrder);
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
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            runner_.Run([this] { form_.lvFormNamesKeyDown(kEnter); });
            return true;
        }
    }
    return TView::eventFilter(watched, event);
}

}  // namespace tml
