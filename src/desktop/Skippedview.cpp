#include "desktop/Skippedview.h"

#include <QFontDatabase>
#include <QHeaderView>
#include <QShortcut>

#include "desktop/Icons.h"
#include "desktop/Texts.h"
#include "ui_Skippedview.h"

namespace tml {
namespace {

constexpr int kIconSize = 16;
constexpr int kListShare = 3;  ///< of the height, against the preview's 2

}  // namespace

TSkippedView::TSkippedView(TfrmSkippedStrings& form, const TViewServices& services)
    : form_(form),
      runner_(services.Runner),
      ui_(std::make_unique<Ui::Skippedview>()),
      binder_(services.Runner),
      model_(form.lvStrings, {}) {
    ui_->setupUi(this);
    ui_->splitter->setStretchFactor(0, kListShare);
    ui_->splitter->setStretchFactor(1, 2);
    ui_->memPreview->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    ui_->noteIcon->setPixmap(PictureOf("info").pixmap(kIconSize));
    ui_->statusBar->addWidget(new QLabel("Total:", this));
    auto* panel = new QLabel(this);
    ui_->statusBar->addWidget(panel);
    binder_.Label(panel, form.StatusPanel);
    binder_.Label(ui_->lblReason, form.lblReason);
    binder_.Label(ui_->lblNote, form.lblNote);
    binder_.Click(ui_->btWayOut, [&form] { form.btWayOutClick(); });
    binder_.Click(ui_->btClose, [&form] { form.btCloseClick(); });
    const auto help = [&form, &services] { services.ShowHelp(form.Name); };
    binder_.Click(ui_->btHelp, help);
    binder_.Keys(this, QKeySequence::HelpContents, help);
    BindTable();
    BindFilter();
}

TSkippedView::~TSkippedView() = default;

void TSkippedView::BindTable() {
    sorted_.setSourceModel(&model_);
    sorted_.setSortRole(TListModel::SortRole);
    QTableView& table = *ui_->lvStrings;
    table.setModel(&sorted_);
    SetUpTable(table);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    // As recorded, until a header is clicked.
    table.horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    table.setSortingEnabled(true);
    const auto& columns = form_.lvStrings.Columns;
    for (std::size_t i = 0; i < columns.size(); ++i)
        table.setColumnWidth(static_cast<int>(i), ShownWidth(*this, columns[i].Width));
    connect(table.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) {
                if (!refreshing_) Select(current);
            });
}

void TSkippedView::BindFilter() {
    connect(ui_->filter, &QLineEdit::textChanged, this, [this](const QString& text) {
        refreshing_ = true;
        sorted_.SetText(text);
        refreshing_ = false;
        Select(sorted_.RowOrFirst(form_.Row));
    });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        ui_->filter->setFocus();
        ui_->filter->selectAll();
    });
    // Of the filter alone: in the table the key goes down.
    new QShortcut(
        Qt::Key_Down, ui_->filter, [this] { ui_->lvStrings->setFocus(); }, Qt::WidgetShortcut);
}

void TSkippedView::Select(const QModelIndex& shown) {
    runner_.Run([&] { form_.lvStringsSelectItem(sorted_.mapToSource(shown).row()); });
}

void TSkippedView::Refresh() {
    if (refreshing_) return;
    refreshing_ = true;
    RefreshRows();
    refreshing_ = false;
    binder_.Refresh();
    RefreshPreview();
    RefreshWayOut();
}

void TSkippedView::RefreshRows() {
    // Telling the model of a change makes it look at every row.
    if (shown_ != form_.lvStrings.Revision()) model_.Refresh();
    shown_ = form_.lvStrings.Revision();
    const QModelIndex current = sorted_.mapFromSource(model_.index(form_.Row, 0));
    if (current.isValid() && current.row() != ui_->lvStrings->currentIndex().row())
        ui_->lvStrings->selectRow(current.row());
    ui_->filterCount->setText(QString("%1 of %2").arg(sorted_.rowCount()).arg(model_.rowCount({})));
}

void TSkippedView::RefreshPreview() {
    const std::string& text = form_.memPreview;
    ui_->memPreview->setPlainText(ToQt(text));
    // The caret at its start, so that a long line does not move the pane aside.
    QTextCursor line(ui_->memPreview->document());
    line.setPosition(PlaceInEditor(text, form_.SelEnd));
    line.setPosition(PlaceInEditor(text, form_.SelBegin), QTextCursor::KeepAnchor);
    ui_->memPreview->setTextCursor(line);
    ui_->memPreview->centerCursor();
}

void TSkippedView::RefreshWayOut() {
    const QString caption = ToQt(form_.WayOutCaption());
    ui_->btWayOut->setVisible(!caption.isEmpty());
    ui_->btWayOut->setText(caption);
    ui_->btWayOut->setToolTip(ToQt(form_.WayOutHint()));
    ui_->note->setVisible(!form_.lblNote.empty());
}

}  // namespace tml
