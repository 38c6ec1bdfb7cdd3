#include "desktop/Transeditorview.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QShortcut>

#include "desktop/Listmodel.h"
#include "desktop/Texts.h"
#include "ui_Transeditorview.h"

namespace tml {
namespace {

constexpr int kTextWidth = 130;  ///< at least, of a column
constexpr int kTreeWidth = 200;
constexpr int kBoxLines = 5;

QString ShareText(const TTransProgress& progress) {
    return progress.Texts == 0 ? QString() : QString("%1/%2").arg(progress.Done()).arg(progress.Texts);
}

/// Line breaks, tabs and blanks are seen.
void ShowBlanks(QPlainTextEdit& box) {
    QTextOption option = box.document()->defaultTextOption();
    option.setFlags(QTextOption::ShowTabsAndSpaces | QTextOption::ShowLineAndParagraphSeparators);
    box.document()->setDefaultTextOption(option);
}

}  // namespace

TTransEditorView::TTransEditorView(TfrmTransEditor& form, const TViewServices& services)
    : form_(form),
      services_(services),
      ui_(std::make_unique<Ui::Transeditorview>()),
      binder_(services.Runner),
      model_(form),
      progress_(new QLabel(this)),
      notice_(new QLabel(this)) {
    ui_->setupUi(this);
    ui_->statusBar->addWidget(progress_);
    ui_->statusBar->addWidget(notice_, 1);
    form_.ReadClipboard = [] { return FromQt(QGuiApplication::clipboard()->text()); };
    form_.WriteClipboard = [](const std::string& text) { QGuiApplication::clipboard()->setText(ToQt(text)); };
    BindTree();
    BindFilters();
    BindCells();
    BindButtons();
    actions_ = std::make_unique<TActionBinding>(form_.Actions, *this, *ui_->toolBar, *ui_->grTexts,
                                                [this](const TAction& action) { Execute(action); });
}

TTransEditorView::~TTransEditorView() = default;

void TTransEditorView::BindTree() {
    std::vector<QTreeWidgetItem*> parents;
    for (const TTransNode& node : form_.Tree) {
        parents.resize(static_cast<std::size_t>(node.Level));
        auto* item = parents.empty() ? new QTreeWidgetItem(ui_->tree) : new QTreeWidgetItem(parents.back());
        item->setText(0, ToQt(node.Caption));
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        parents.push_back(item);
        nodes_.push_back(item);
    }
    // Of many forms only their names, of one all it has.
    ui_->tree->expandToDepth(0);
    ui_->tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    ui_->tree->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    ui_->tree->header()->setStretchLastSection(false);
    ui_->splitter->setStretchFactor(1, 1);
    ui_->splitter->setSizes({ShownWidth(*this, kTreeWidth), width()});
    connect(ui_->tree, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* current) {
        if (refreshing_ || current == nullptr) return;
        const auto node = std::find(nodes_.begin(), nodes_.end(), current) - nodes_.begin();
        Run([&] { form_.SelectNode(static_cast<int>(node)); });
    });
}

void TTransEditorView::ChangeFilter(const std::function<void(TTransFilter&)>& change) {
    if (refreshing_) return;
    TTransFilter filter = form_.Filter();
    change(filter);
    Run([&] { form_.SetFilter(filter); });
}

void TTransEditorView::BindFilters() {
    ui_->cbLanguage->addItem("any language");
    for (const TTransLanguage& language : form_.Texts().Languages())
        ui_->cbLanguage->addItem(ToQt(language.Name));
    connect(ui_->cbShow, &QComboBox::currentIndexChanged, this, [this](int index) {
        ChangeFilter([index](TTransFilter& filter) { filter.Show = static_cast<TTransShow>(index); });
    });
    connect(ui_->cbLanguage, &QComboBox::currentIndexChanged, this, [this](int index) {
        ChangeFilter([&](TTransFilter& filter) {
            filter.Language = index <= 0 ? std::string() : FromQt(ui_->cbLanguage->itemText(index));
        });
    });
    connect(ui_->filter, &QLineEdit::textChanged, this, [this](const QString& text) {
        ChangeFilter([&](TTransFilter& filter) { filter.Text = FromQt(text); });
    });
    ui_->ckPattern->setVisible(form_.HasPatterns());
    connect(ui_->ckPattern, &QCheckBox::toggled, this, [this](bool checked) {
        ChangeFilter([checked](TTransFilter& filter) { filter.IsPattern = checked; });
    });
    binder_.Keys(this, QKeySequence::Find, [this] {
        ui_->filter->setFocus();
        ui_->filter->selectAll();
    });
    // Of the box alone: in the table the key goes down.
    new QShortcut(
        Qt::Key_Down, ui_->filter, [this] { ui_->grTexts->setFocus(); }, Qt::WidgetShortcut);
}

void TTransEditorView::BindCells() {
    model_.Run = [this](const std::function<void()>& work) { Run(work); };
    TTransCells& cells = *ui_->grTexts;
    cells.setModel(&model_);
    SetUpTable(cells);
    cells.setSelectionBehavior(QAbstractItemView::SelectItems);
    cells.setSelectionMode(QAbstractItemView::ContiguousSelection);
    cells.setShowGrid(true);
    cells.EditBelow = [this](QEvent* event) { EditBelow(event); };
    ui_->textSplitter->setStretchFactor(0, 1);
    for (QPlainTextEdit* box : {ui_->memBase, ui_->memFormer, ui_->memText})
        ShowBlanks(*box);
    ui_->memText->installEventFilter(this);
}

void TTransEditorView::BindButtons() {
    binder_.Click(ui_->btnOK, [this] {
        TakeTyped();
        form_.btnOKClick();
    });
    binder_.Click(ui_->btnCancel, [this] {
        TakeTyped();
        form_.btnCancelClick();
    });
    binder_.Click(ui_->btnHelp, [this] { services_.ShowHelp(form_.Name); });
    // From the table to the box and back.
    binder_.Keys(this, Qt::CTRL | Qt::Key_Return, [this] {
        if (ui_->memText->hasFocus())
            ui_->grTexts->setFocus();
        else
            EditBelow(nullptr);
    });
}

void TTransEditorView::Execute(const TAction& action) {
    TakeTyped();
    Run([&] { action.Execute ? action.Execute() : services_.ShowHelp(form_.Name); });
}

// --- the box below

void TTransEditorView::TakeTyped() {
    ui_->grTexts->CommitEditor();
    QTextDocument& typed = *ui_->memText->document();
    if (!typed.isModified() || !form_.Grid().HasRow()) return;
    typed.setModified(false);
    const std::string text = FromQt(typed.toPlainText());
    Run([&] { form_.SetText(form_.Grid().Place(), form_.Grid().Column(), text); });
}

void TTransEditorView::EditBelow(QEvent* event) {
    if (ui_->memText->isReadOnly()) return;
    ui_->memText->setFocus();
    ui_->memText->selectAll();
    if (event != nullptr) QCoreApplication::sendEvent(ui_->memText, event);
}

bool TTransEditorView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut) TakeTyped();
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        // Back to the table; what was typed in the box is dropped.
        ui_->memText->document()->setModified(false);
        ui_->grTexts->setFocus();
        Refresh();
        return true;
    }
    return TView::eventFilter(watched, event);
}

// --- showing

void TTransEditorView::LayOut() {
    laidOut_ = true;
    QTableView& cells = *ui_->grTexts;
    const int share = cells.viewport()->width() / form_.ColumnCount();
    for (int column = 0; column < form_.ColumnCount(); ++column)
        cells.setColumnWidth(column, std::max(share, ShownWidth(*this, kTextWidth)));
    // The least for the grid: what is left of the height goes to it.
    const int boxes = (kBoxLines + 2) * fontMetrics().lineSpacing();
    ui_->textSplitter->setSizes({1, std::min(boxes, height() / 2)});
}

void TTransEditorView::Refresh() {
    if (refreshing_) return;
    refreshing_ = true;
    if (!laidOut_ && isVisible()) LayOut();
    ui_->grTexts->ShowCells();
    binder_.Refresh();
    actions_->Refresh();
    RefreshTree();
    RefreshFilters();
    RefreshTexts();
    RefreshStatus();
    refreshing_ = false;
}

int TTransEditorView::ProgressColumn() const {
    const int last = form_.ColumnCount() - 1;
    return form_.Grid().Column() > 1 ? form_.Grid().Column() : std::min(2, last);
}

void TTransEditorView::RefreshTree() {
    ui_->tree->setCurrentItem(nodes_[static_cast<std::size_t>(form_.Node())]);
    const int column = ProgressColumn();
    ui_->tree->headerItem()->setText(1, column > 1 ? ToQt(form_.ColumnCaption(column)) : QString());
    for (std::size_t i = 0; i < nodes_.size() && column > 1; ++i)
        nodes_[i]->setText(1, ShareText(form_.NodeProgress(static_cast<int>(i), column)));
}

void TTransEditorView::RefreshFilters() {
    const TTransFilter& filter = form_.Filter();
    ui_->cbShow->setCurrentIndex(static_cast<int>(filter.Show));
    ui_->cbLanguage->setCurrentIndex(std::max(0, ui_->cbLanguage->findText(ToQt(filter.Language))));
    ui_->cbLanguage->setEnabled(filter.Show != TTransShow::All);
    if (FromQt(ui_->filter->text()) != filter.Text) ui_->filter->setText(ToQt(filter.Text));
    ui_->ckPattern->setChecked(filter.IsPattern);
    ui_->filterCount->setText(QString("%1 rows").arg(form_.Grid().Count()));
}

void TTransEditorView::ShowText(QPlainTextEdit& box, const QString& text, int column) {
    const bool mirrored = model_.IsRightToLeft(column);
    QTextOption option = box.document()->defaultTextOption();
    option.setTextDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    option.setAlignment(mirrored ? Qt::AlignRight : Qt::AlignLeft);
    box.document()->setDefaultTextOption(option);
    // The caret of somebody who types stays.
    if (box.toPlainText() != text) box.setPlainText(text);
    box.document()->setModified(false);
}

void TTransEditorView::RefreshTexts() {
    const TTransGrid& grid = form_.Grid();
    const bool hasRow = grid.HasRow();
    const int place = grid.Place(), column = grid.Column();
    const auto text = [&](int of) {
        return hasRow ? ToQt(form_.Text(place, of)).replace("\r\n", "\n") : QString();
    };
    ui_->lblBase->setText(form_.ColumnCount() > 1 ? ToQt(form_.ColumnCaption(1)) + ":" : QString());
    if (form_.ColumnCount() > 1) ShowText(*ui_->memBase, text(1), 1);
    const QString former = hasRow ? ToQt(form_.FormerBase(place, column)).replace("\r\n", "\n") : QString();
    ui_->lblFormer->setVisible(!former.isEmpty());
    ui_->memFormer->setVisible(!former.isEmpty());
    ShowText(*ui_->memFormer, former, 1);
    QString caption = ToQt(form_.ColumnCaption(column));
    const QString state = hasRow ? StateText(form_, place, column) : QString();
    if (!state.isEmpty()) caption += " (" + state + ")";
    ui_->lblText->setText(caption + ":");
    ui_->memText->setReadOnly(!hasRow || column == 0 || !form_.IsEditable(place, column));
    if (!ui_->memText->document()->isModified()) ShowText(*ui_->memText, text(column), column);
}

void TTransEditorView::RefreshStatus() {
    const int column = ProgressColumn();
    QString text;
    if (column > 1) {
        const TTransProgress progress = form_.NodeProgress(form_.Node(), column);
        const int percent = progress.Texts == 0 ? 100 : 100 * progress.Done() / progress.Texts;
        text = QString("%1: %2 of %3 done (%4 %)")
                   .arg(ToQt(form_.ColumnCaption(column)))
                   .arg(progress.Done())
                   .arg(progress.Texts)
                   .arg(percent);
    }
    progress_->setText(text);
    notice_->setText(ToQt(form_.Notice));
}

}  // namespace tml
