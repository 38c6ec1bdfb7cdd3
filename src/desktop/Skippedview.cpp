#include "desktop/Skippedview.h"

#include <QFontDatabase>
#include <QHeaderView>

#include "desktop/Filterbox.h"
#include "desktop/Icons.h"
#include "desktop/Listmodel.h"
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
      model_([&form]() -> TGrid& { return form.Table; }) {
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
}

TSkippedView::~TSkippedView() = default;

void TSkippedView::BindTable() {
    model_.Run = [this](const std::function<void()>& work) { runner_.Run(work); };
    TRowTable& table = *ui_->lvStrings;
    table.setModel(&model_);
    SetUpTable(table);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    // As recorded, until a header is clicked.
    table.horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    table.setSortingEnabled(true);
    const auto& columns = form_.Table.Columns;
    for (std::size_t i = 0; i < columns.size(); ++i)
        table.setColumnWidth(static_cast<int>(i), ShownWidth(*this, columns[i].Width));
    BindFilter(*this, *ui_->filter, table, runner_,
               [this](const std::string& text) { form_.Table.SetFilter(text); });
}

void TSkippedView::Refresh() {
    ui_->lvStrings->ShowGrid();
    ui_->filterCount->setText(FilterCount(*ui_->lvStrings));
    binder_.Refresh();
    RefreshPreview();
    RefreshWayOut();
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
