#include "desktop/Resultsview.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

#include "desktop/Texts.h"
#include "ui_Resultsview.h"

namespace tml {
namespace {

constexpr TShortCut kReturn = 0x0D;

}  // namespace

TResultsView::TResultsView(const TForm& form, TResults results, const TViewServices& services)
    : results_(std::move(results)),
      runner_(services.Runner),
      ui_(std::make_unique<Ui::Resultsview>()),
      model_(results_.List, {}) {
    ui_->setupUi(this);
    ui_->lblTop->setText(ToQt(results_.Top));
    ui_->lblTop->setVisible(!results_.Top.empty());
    BindList();
    resize(WidthFor(form), ShownWidth(*this, form.ClientHeight));
    ui_->toolBar->setVisible(results_.Actions != nullptr && !results_.Actions->ToolBar.empty());
    if (results_.Actions != nullptr)
        actions_ = std::make_unique<TActionBinding>(
            *results_.Actions, *this, *ui_->toolBar, *ui_->lvIDs,
            [this](const TAction& action) { runner_.Run([&] { action.Execute(); }); });
}

TResultsView::~TResultsView() = default;

void TResultsView::BindList() {
    QTableView& table = *ui_->lvIDs;
    table.setModel(&model_);
    SetUpTable(table);
    // The end of a path tells more than its beginning.
    table.setTextElideMode(Qt::ElideMiddle);
    table.installEventFilter(this);
    LayOutColumns();
    connect(table.horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        results_.List.Columns.at(static_cast<std::size_t>(column)).Width = DesignWidth(*this, width);
    });
    connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this, &table] {
        runner_.Run([&] {
            SelectionToList(table, results_.List);
            results_.Change();
        });
    });
    connect(&table, &QTableView::doubleClicked, this, [this] { runner_.Run(results_.DblClick); });
}

void TResultsView::Widen(int column) {
    model_.Refresh();
    QTableView& table = *ui_->lvIDs;
    const int more =
        static_cast<QAbstractItemView&>(table).sizeHintForColumn(column) - table.columnWidth(column);
    if (more <= 0) return;
    table.setColumnWidth(column, table.columnWidth(column) + more);
    resize(width() + more, height());
}

void TResultsView::LayOutColumns() {
    const auto& columns = results_.List.Columns;
    for (std::size_t i = 0; i + 1 < columns.size(); ++i)
        ui_->lvIDs->setColumnWidth(static_cast<int>(i), ShownWidth(*this, columns[i].Width));
}

/// All columns are seen, the last one in its width of the design.
int TResultsView::WidthFor(const TForm& form) const {
    int columns = ShownWidth(*this, results_.List.Columns.back().Width) + ui_->lvIDs->frameWidth() * 2;
    for (std::size_t i = 0; i + 1 < results_.List.Columns.size(); ++i)
        columns += ui_->lvIDs->columnWidth(static_cast<int>(i));
    return std::max(ShownWidth(*this, form.ClientWidth), columns);
}

void TResultsView::Refresh() {
    model_.Refresh();
    SelectionFromList(*ui_->lvIDs, results_.List);
    if (actions_ != nullptr) actions_->Refresh();
    ui_->total->setText(QString("Total: %1").arg(results_.List.Count()));
}

bool TResultsView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter)
            return runner_.Run([this] { results_.KeyDown(kReturn); }), true;
    }
    return TView::eventFilter(watched, event);
}

TBadIDsView::TBadIDsView(TfrmBadIDs& form, const TViewServices& services)
    : TResultsView(
          form,
          {form.lvIDs, form.Placement, [&form] { form.lvIDsChange(); }, [&form] { form.LVIDsDblClick(); },
           [&form](TShortCut key) { form.LVIDsKeyDown(key); }, &form.Actions, form.lblTop},
          services) {
    if (form.lvIDs.Columns[bcType].Width == kBadIDTypeWidth) Widen(bcType);
}

TFoundPhrasesView::TFoundPhrasesView(TfrmFoundPhrases& form, const TViewServices& services)
    : TResultsView(form,
                   {form.lvIDs, form.Placement, [&form] { form.lvIDsChange(); },
                    [&form] { form.LVIDsDblClick(); }, [&form](TShortCut key) { form.LVIDsKeyDown(key); }},
                   services) {}

}  // namespace tml
