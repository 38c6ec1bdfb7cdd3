#include "desktop/Resultsview.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

#include "desktop/Texts.h"
#include "ui_Resultsview.h"

namespace tml {
namespace {

constexpr TShortCut kReturn = 0x0D;
// In the design:
constexpr int kGap = 6;              ///< in front of the next column
constexpr int kWidestAtFirst = 300;  ///< of a column in a window that is new

/// The width that no column may exceed, so that all of them have room.
int LargestWidth(std::vector<int> needed, int room) {
    std::sort(needed.begin(), needed.end());
    int left = static_cast<int>(needed.size());
    for (const int width : needed) {
        if (width > room / left) return room / left;
        room -= width;
        --left;
    }
    return needed.back();
}

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
    table.viewport()->installEventFilter(this);
    connect(&model_, &QAbstractItemModel::modelReset, this, [this] {
        contentWidths_.clear();
        LayOutColumns();
    });
    connect(table.horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { NoteWidth(column, width); });
    model_.Refresh();
    connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this, &table] {
        runner_.Run([&] {
            SelectionToList(table, results_.List);
            results_.Change();
        });
    });
    connect(&table, &QTableView::doubleClicked, this, [this] { runner_.Run(results_.DblClick); });
}

void TResultsView::LayOutColumns() {
    layingOut_ = true;
    QTableView& table = *ui_->lvIDs;
    const auto& columns = results_.List.Columns;
    const int last = static_cast<int>(columns.size()) - 1;
    if (contentWidths_.empty())
        for (int i = 0; i <= last; ++i)
            contentWidths_.push_back(ContentWidth(table, i) + ShownWidth(*this, kGap));
    const int largest = LargestWidth(contentWidths_, table.viewport()->width());
    // The last one has what is left, but never less than what it was given itself: it comes first.
    for (int i = last; i >= 0; --i) {
        const auto column = static_cast<std::size_t>(i);
        const bool isChosen = i < last && !results_.HasDesignWidths();
        table.setColumnWidth(i, isChosen ? ShownWidth(*this, columns[column].Width)
                                         : std::min(contentWidths_[column], largest));
    }
    layingOut_ = false;
}

void TResultsView::NoteWidth(int column, int width) {
    auto& columns = results_.List.Columns;
    const auto place = static_cast<std::size_t>(column);
    if (layingOut_ || place + 1 == columns.size()) return;
    // The first width that is chosen fixes the others where they stand.
    if (results_.HasDesignWidths())
        for (std::size_t i = 0; i + 1 < columns.size(); ++i)
            columns[i].Width = DesignWidth(*this, ui_->lvIDs->columnWidth(static_cast<int>(i)));
    columns[place].Width = DesignWidth(*this, width);
}

/// All columns are seen, the last one in the width that it needs.
int TResultsView::WidthFor(const TForm& form) const {
    const int most = ShownWidth(*this, kWidestAtFirst);
    int columns = ui_->lvIDs->frameWidth() * 2 + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    for (std::size_t i = 0; i < contentWidths_.size(); ++i)
        columns += results_.HasDesignWidths() || i + 1 == contentWidths_.size()
                       ? std::min(contentWidths_[i], most)
                       : ShownWidth(*this, results_.List.Columns[i].Width);
    return std::max(ShownWidth(*this, form.ClientWidth), columns);
}

void TResultsView::Refresh() {
    model_.Refresh();
    SelectionFromList(*ui_->lvIDs, results_.List);
    if (actions_ != nullptr) actions_->Refresh();
    ui_->total->setText(QString("Total: %1").arg(results_.List.Count()));
}

bool TResultsView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && watched == ui_->lvIDs->viewport()) LayOutColumns();
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter)
            return runner_.Run([this] { results_.KeyDown(kReturn); }), true;
    }
    return TView::eventFilter(watched, event);
}

TBadIDsView::TBadIDsView(TfrmBadIDs& form, const TViewServices& services)
    : TResultsView(form,
                   {form.lvIDs, form.Placement, [&form] { form.lvIDsChange(); },
                    [&form] { form.LVIDsDblClick(); }, [&form](TShortCut key) { form.LVIDsKeyDown(key); },
                    [&form] { return form.HasDesignWidths(); }, &form.Actions, form.lblTop},
                   services) {}

TFoundPhrasesView::TFoundPhrasesView(TfrmFoundPhrases& form, const TViewServices& services)
    : TResultsView(
          form,
          {form.lvIDs, form.Placement, [&form] { form.lvIDsChange(); }, [&form] { form.LVIDsDblClick(); },
           [&form](TShortCut key) { form.LVIDsKeyDown(key); }, [&form] { return form.HasDesignWidths(); }},
          services) {}

}  // namespace tml
