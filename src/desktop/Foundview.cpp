#include "desktop/Foundview.h"

#include <QFontDatabase>
#include <QHeaderView>
#include <QLabel>
#include <QTextBlock>

#include "desktop/Filterbox.h"
#include "desktop/Icons.h"
#include "desktop/Listmodel.h"
#include "desktop/Texts.h"
#include "ui_Foundview.h"

namespace tml {
namespace {

constexpr int kMarkTint = 90;  ///< of 255
constexpr int kRemarkSize = 16;
constexpr int kLineTint = 50;

/// Tints the lines of a diff that go and those that come.
QList<QTextEdit::ExtraSelection> ChangedLines(const QTextDocument& diff) {
    QList<QTextEdit::ExtraSelection> tinted;
    for (QTextBlock line = diff.begin(); line.isValid(); line = line.next()) {
        const QString text = line.text();
        const bool isName = text.startsWith("+++") || text.startsWith("---");
        if (isName || !(text.startsWith('+') || text.startsWith('-'))) continue;
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(line);
        QColor tint = text.startsWith('+') ? Qt::green : Qt::red;
        tint.setAlpha(kLineTint);
        mark.format.setBackground(tint);
        mark.format.setProperty(QTextFormat::FullWidthSelection, true);
        tinted += mark;
    }
    return tinted;
}

}  // namespace

TFoundView::TFoundView(TfrmFound& form, const TViewServices& services)
    : form_(form),
      services_(services),
      ui_(std::make_unique<Ui::Foundview>()),
      binder_(services.Runner),
      model_([&form]() -> TGrid& { return form.Shown(); }) {
    ui_->setupUi(this);
    for (QLabel*& panel : panels_) {
        panel = new QLabel(this);
        panel->setMinimumWidth(140);
        ui_->statusBar->addWidget(panel);
    }
    ui_->splitter->setStretchFactor(0, 1);
    ui_->splitter->setStretchFactor(1, 0);
    for (QPlainTextEdit* pane : {ui_->memPreview, ui_->memChange})
        pane->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    ui_->memChange->hide();  // before the heights are laid out
    binder_.Click(ui_->wholeChange, [this] { form_.acShowChange(); });
    binder_.Click(ui_->hideNotice, [this] { form_.HideNotice(); });
    binder_.Label(ui_->tableCaption, form_.TableCaption);
    BindTable();
    actions_ = std::make_unique<TActionBinding>(form_.Actions, *this, *ui_->toolBar, *ui_->sgStrings,
                                                [this](const TAction& action) { Execute(action); });
}

TFoundView::~TFoundView() = default;

void TFoundView::BindTable() {
    model_.Run = [this](const std::function<void()>& work) { services_.Runner.Run(work); };
    TRowTable& table = *ui_->sgStrings;
    table.setModel(&model_);
    SetUpTable(table);
    table.horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    table.setSortingEnabled(true);
    BindFilter(*this, *ui_->filter, table, services_.Runner,
               [this](const std::string& text) { form_.SetFilter(text); });
}

void TFoundView::Execute(const TAction& action) {
    // Neither a key nor a tool button takes the focus from a cell's editor.
    ui_->sgStrings->CommitEditor();
    services_.Runner.Run([&] { action.Execute ? action.Execute() : services_.ShowHelp(form_.Name); });
}

// --- showing

void TFoundView::LayOut() {
    laidOut_ = true;
    const auto& columns = form_.sgStrings.Columns;
    for (std::size_t i = 0; i < columns.size(); ++i)
        ui_->sgStrings->setColumnWidth(static_cast<int>(i), ShownWidth(*this, columns[i].Width));
    int preview = form_.PreviewHeight;
    if (preview <= 0) {
        const QPlainTextEdit& pane = *ui_->memPreview;
        const int frame = 2 * (pane.frameWidth() + static_cast<int>(pane.document()->documentMargin()));
        const int around = ui_->previewPane->sizeHint().height() - pane.sizeHint().height();
        preview = around + frame + form_.PreviewRows() * pane.fontMetrics().lineSpacing();
        preview = std::min(preview, height() / 2);
    }
    // The least for the rows: what is left of the height goes to them.
    ui_->splitter->setSizes({1, preview});
    ui_->sgStrings->setFocus();
}

void TFoundView::Refresh() {
    if (!laidOut_ && form_.Visible) LayOut();
    ui_->sgStrings->ShowGrid();
    binder_.Refresh();
    actions_->Refresh();
    RefreshPreview();
    RefreshChange();
    RefreshRemark();
    ui_->notice->setVisible(form_.NoticeVisible);
    for (std::size_t i = 0; i < form_.StatusPanels.size(); ++i)
        panels_[i]->setText(ToQt(form_.StatusPanels[i]));
    panels_.back()->setText(ToQt(form_.TakenPanel));
    ui_->filterCount->setText(FilterCount(*ui_->sgStrings));
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
}

void TFoundView::RefreshChange() {
    ui_->wholeChange->setEnabled(form_.HasChange());
    ui_->wholeChange->setText(form_.ShowsChange ? "Current row" : "Whole change");
    ui_->memPreview->setVisible(!form_.ShowsChange);
    ui_->memChange->setVisible(form_.ShowsChange);
    if (!form_.ShowsChange || change_ == form_.Change) return;
    change_ = form_.Change;
    ui_->memChange->setPlainText(ToQt(change_));
    ui_->memChange->setExtraSelections(ChangedLines(*ui_->memChange->document()));
}

void TFoundView::RefreshRemark() {
    const bool isWrong = !form_.IDNotice.empty();
    const std::string remark = isWrong ? form_.IDNotice : form_.Advice();
    ui_->advice->setText(ToQt(remark));
    ui_->adviceIcon->setPixmap(PictureOf(isWrong ? "error" : "advice").pixmap(kRemarkSize));
    ui_->adviceIcon->setVisible(!remark.empty());
}

void TFoundView::BeforeClose() {
    auto& columns = form_.sgStrings.Columns;
    for (std::size_t i = 0; i < columns.size(); ++i)
        columns[i].Width = DesignWidth(*this, ui_->sgStrings->columnWidth(static_cast<int>(i)));
    form_.PreviewHeight = ui_->splitter->sizes().at(1);
}

}  // namespace tml
