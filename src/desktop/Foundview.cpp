#include "desktop/Foundview.h"

#include <QAction>
#include <QFontDatabase>
#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QToolButton>

#include "desktop/Icons.h"
#include "desktop/Listmodel.h"
#include "desktop/Texts.h"
#include "ui_Foundview.h"

namespace tml {
namespace {

/// The tool bar, "" for a separator; the other commands are in the popup menu.
constexpr std::array kToolBar{
    "ModifySource",   "Cancel", "",          "acDeleteRow",     "acExclude",
    "acMarktoIgnore", "",       "acStartID", "acSwitchDeleted", "acRestoreDeletedRow",
    "acViewSkipped",  "",       "Help"};

/// The commands after which the popup menu has a line.
constexpr std::array kGroupEnds{"acExclude", "acRemoveIgnoreMark", "acRestoreDeletedRow", "acViewSkipped",
                                "acSelectAdvised"};

constexpr int kMarkTint = 90;  ///< of 255

std::vector<int> SourceRows(const QItemSelection& selection, const QSortFilterProxyModel& sorted) {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : selection)
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(sorted.mapToSource(sorted.index(row, 0)).row());
    return rows;
}

}  // namespace

TFoundView::TFoundView(TfrmFound& form, const TViewServices& services)
    : form_(form),
      services_(services),
      ui_(std::make_unique<Ui::Foundview>()),
      binder_(services.Runner),
      model_(form) {
    ui_->setupUi(this);
    for (QLabel*& panel : panels_) {
        panel = new QLabel(this);
        panel->setMinimumWidth(140);
        ui_->statusBar->addWidget(panel);
    }
    ui_->splitter->setStretchFactor(0, 1);
    ui_->splitter->setStretchFactor(1, 0);
    ui_->memPreview->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    ui_->adviceIcon->setPixmap(PictureOf("advice").pixmap(16));
    binder_.Click(ui_->hideNotice, [this] { form_.HideNotice(); });
    BindTable();
    BindActions();
    FillToolBar();
    FillPopup();
}

TFoundView::~TFoundView() = default;

void TFoundView::BindTable() {
    sorted_.IsShown = [this](int row) { return form_.Shown().Rows[static_cast<std::size_t>(row)].Shown; };
    sorted_.setSourceModel(&model_);
    TRowTable& table = *ui_->sgStrings;
    table.setModel(&sorted_);
    SetUpTable(table);
    table.setSortingEnabled(true);
    table.sortByColumn(TFoundModel::fcLine, Qt::AscendingOrder);
    table.setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    connect(&table, &QAbstractItemView::activated, this, [this](const QModelIndex& index) {
        ui_->sgStrings->edit(index.siblingAtColumn(TFoundModel::fcID));
    });
    model_.OnEdit = [this](int row, const std::string& id) {
        services_.Runner.Run([&] { form_.SetEditText(row, id); });
    };
    connect(table.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) {
                if (refreshing_ || !current.isValid()) return;
                services_.Runner.Run([&] { form_.SelectCell(sorted_.mapToSource(current).row()); });
            });
    connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection& selected, const QItemSelection& deselected) {
                TakeSelection(selected, true);
                TakeSelection(deselected, false);
            });
    connect(ui_->filter, &QLineEdit::textChanged, this,
            [this](const QString& text) { services_.Runner.Run([&] { form_.SetFilter(FromQt(text)); }); });
}

void TFoundView::RefreshFilter() {
    if (filter_ == form_.Filter) return;
    filter_ = form_.Filter;
    sorted_.Refilter();
}

// --- commands

void TFoundView::AddAction(const TFoundAction& action) {
    const QString name = ToQt(action.Name);
    auto* bound = new QAction(IconOf(action.Name), ToQt(action.Caption), this);
    bound->setObjectName(name);
    bound->setShortcut(KeysOf(TextToShortCut(action.ShortCut)));
    connect(bound, &QAction::triggered, this, [this, &action] {
        Execute(
            [&] { action.Execute == nullptr ? services_.ShowHelp(form_.Name) : (form_.*action.Execute)(); });
    });
    addAction(bound);
    actions_[name] = bound;
}

void TFoundView::Execute(const std::function<void()>& command) {
    // Neither a key nor a tool button takes the focus from a cell's editor.
    ui_->sgStrings->CommitEditor();
    services_.Runner.Run(command);
}

void TFoundView::BindActions() {
    for (const auto& table : {TfrmFound::Actions(), TfrmFound::ToolButtons()})
        for (const TFoundAction& action : table)
            AddAction(action);
    const auto focusFilter = [this] {
        ui_->filter->setFocus();
        ui_->filter->selectAll();
    };
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, focusFilter);
    // Of the filter alone: in the table the key goes down.
    new QShortcut(
        Qt::Key_Down, ui_->filter, [this] { ui_->sgStrings->setFocus(); }, Qt::WidgetShortcut);
}

void TFoundView::FillToolBar() {
    for (const QString name : kToolBar) {
        if (name.isEmpty()) ui_->toolBar->addSeparator();
        if (actions_.contains(name)) ui_->toolBar->addAction(actions_[name]);
    }
    actions_["acMarktoIgnore"]->setIconText("Ignore");
}

void TFoundView::FillPopup() {
    ui_->sgStrings->setContextMenuPolicy(Qt::ActionsContextMenu);
    for (const TFoundAction& action : TfrmFound::Actions()) {
        const QString name = ToQt(action.Name);
        ui_->sgStrings->addAction(actions_[name]);
        if (std::find(kGroupEnds.begin(), kGroupEnds.end(), name) == kGroupEnds.end()) continue;
        auto* line = new QAction(ui_->sgStrings);
        line->setSeparator(true);
        ui_->sgStrings->addAction(line);
    }
    const TFoundAction& menu = TfrmFound::MethodMenu();
    auto* methods = new QMenu(ToQt(menu.Caption), this);
    methods->setObjectName(ToQt(menu.Name));
    actions_[methods->objectName()] = methods->menuAction();
    for (const std::string_view method : TfrmFound::Methods())
        connect(methods->addAction(ToQt(method)), &QAction::triggered, this,
                [this, method] { Execute([&] { form_.UseMethod(std::string(method)); }); });
    ui_->sgStrings->addAction(methods->menuAction());
}

// --- showing

void TFoundView::TakeSelection(const QItemSelection& rows, bool selected) {
    if (refreshing_ || rows.isEmpty()) return;
    services_.Runner.Run([&] { form_.SelectRows(SourceRows(rows, sorted_), selected); });
}

void TFoundView::Refresh() {
    if (refreshing_) return;
    refreshing_ = true;
    if (!laidOut_ && form_.Visible) {
        laidOut_ = true;
        for (std::size_t i = 0; i < form_.GridCols.size(); ++i)
            ui_->sgStrings->setColumnWidth(static_cast<int>(i), ShownWidth(*this, form_.GridCols[i]));
        // The least for the rows: what is left of the height goes to them.
        ui_->splitter->setSizes({1, form_.PreviewHeight});
        ui_->sgStrings->setFocus();
    }
    model_.Refresh();
    RefreshFilter();
    RefreshSelection();
    refreshing_ = false;
    RefreshActions();
    RefreshPreview();
    ui_->notice->setVisible(form_.NoticeVisible);
    for (std::size_t i = 0; i < panels_.size(); ++i)
        panels_[i]->setText(ToQt(form_.StatusPanels[i]));
    ui_->filterCount->setText(QString("%1 of %2").arg(sorted_.rowCount()).arg(model_.rowCount({})));
    ui_->sgStrings->viewport()->update();
}

void TFoundView::RefreshActions() {
    for (const auto& table : {TfrmFound::Actions(), TfrmFound::ToolButtons()})
        for (const TFoundAction& action : table)
            RefreshAction(action);
    RefreshAction(TfrmFound::MethodMenu());
}

void TFoundView::RefreshAction(const TFoundAction& action) {
    QAction* bound = actions_[ToQt(action.Name)];
    bound->setText(ToQt(form_.CaptionOf(action)));
    bound->setEnabled(form_.EnabledOf(action));
    const std::string hint = form_.HintOf(action);
    QString tip = hint.empty() ? bound->text().remove('&') : ToQt(hint);
    if (!bound->shortcut().isEmpty())
        tip += " (" + bound->shortcut().toString(QKeySequence::NativeText) + ")";
    bound->setToolTip(tip);
}

void TFoundView::RefreshSelection() {
    const auto& rows = form_.Shown().Rows;
    QItemSelection selection;
    for (int shown = 0; shown < sorted_.rowCount(); ++shown) {
        const auto row = static_cast<std::size_t>(sorted_.mapToSource(sorted_.index(shown, 0)).row());
        if (!rows[row].Selected) continue;
        // Neighbours are one range, so that the cost stays that of the rows.
        int last = shown;
        while (last + 1 < sorted_.rowCount() &&
               rows[static_cast<std::size_t>(sorted_.mapToSource(sorted_.index(last + 1, 0)).row())].Selected)
            ++last;
        selection.select(sorted_.index(shown, 0), sorted_.index(last, TFoundModel::fcReplacement));
        shown = last;
    }
    auto* model = ui_->sgStrings->selectionModel();
    if (model->selection() != selection) {
        // In two steps: in one, each range of the old selection is compared with each of the new one.
        model->clearSelection();
        model->select(selection, QItemSelectionModel::Select);
    }
    const QModelIndex current = sorted_.mapFromSource(model_.index(form_.Shown().Row, TFoundModel::fcID));
    if (current.isValid() && current.row() != ui_->sgStrings->currentIndex().row())
        model->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
}

void TFoundView::RefreshPreview() {
    const TFoundPreview preview = form_.Preview();
    ui_->memPreview->setPlainText(ToQt(preview.Text));
    const int begin = PlaceInEditor(preview.Text, preview.Begin);
    const int end = PlaceInEditor(preview.Text, preview.End);
    QTextEdit::ExtraSelection mark;
    QColor tint = palette().color(QPalette::Highlight);
    tint.setAlpha(kMarkTint);
    mark.format.setBackground(tint);
    mark.cursor = QTextCursor(ui_->memPreview->document());
    mark.cursor.setPosition(begin);
    mark.cursor.setPosition(end, QTextCursor::KeepAnchor);
    ui_->memPreview->setExtraSelections({mark});
    QTextCursor cursor(ui_->memPreview->document());
    cursor.setPosition(begin);
    ui_->memPreview->setTextCursor(cursor);
    ui_->memPreview->centerCursor();
    const std::string advice = form_.Advice();
    ui_->advice->setText(ToQt(advice));
    ui_->adviceIcon->setVisible(!advice.empty());
}

void TFoundView::BeforeClose() {
    for (std::size_t i = 0; i < form_.GridCols.size(); ++i)
        form_.GridCols[i] = DesignWidth(*this, ui_->sgStrings->columnWidth(static_cast<int>(i)));
    form_.PreviewHeight = ui_->splitter->sizes().at(1);
}

}  // namespace tml
