#include "desktop/Transeditorview.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QRegularExpression>
#include <QShortcut>

#include "desktop/Listmodel.h"
#include "desktop/Texts.h"
#include "desktop/Transformpane.h"
#include "ui_Transeditorview.h"

namespace tml {
namespace {

constexpr int kTextWidth = 130;  ///< at least, of a column
constexpr int kTreeWidth = 200;
constexpr int kBoxLines = 5;
constexpr int kStackedLines = 14;  ///< that base text and translation need below each other
constexpr int kLinesAbove = 16;    ///< that bars, buttons and a few rows of the grid need
constexpr int kFilterPause = 150;  ///< ms

constexpr const char* kTreeSizes = "Tree.frmTransEditor";
constexpr const char* kBoxSizes = "Boxes.frmTransEditor";
constexpr const char* kColumnSizes = "Columns.frmTransEditor";
constexpr const char* kFormSizes = "Form.frmTransEditor";
constexpr const char* kFormBoxSizes = "FormBoxes.frmTransEditor";

QString ShareText(const TTransProgress& progress) {
    return progress.Texts == 0 ? QString() : QString("%1/%2").arg(progress.Done()).arg(progress.Texts);
}

/// Why a regular expression cannot be read, and up to where it can.
QString ProblemOf(const QString& pattern) {
    const QRegularExpression read(pattern);
    if (read.isValid()) return {};
    const QString good = pattern.left(read.patternErrorOffset());
    return ": " + read.errorString() + (good.isEmpty() ? QString() : " (behind \"" + good + "\")");
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
      pane_(new TTransFormPane(services.Host, form.Texts())),
      onDisk_(*services.Host.Files, FilesOfForms()),
      progress_(new QLabel(this)),
      changed_(new QLabel(this)),
      notice_(new QLabel(this)) {
    ui_->setupUi(this);
    ui_->statusBar->addWidget(progress_);
    changed_->setObjectName("changedFiles");
    changed_->setTextFormat(Qt::PlainText);
    changed_->setStyleSheet("font-weight: bold");
    changed_->setToolTip(
        "Somebody else has written them since the editor was opened. Their texts are here as they were; "
        "what is edited goes into the open forms, and before these are saved you are asked.");
    ui_->statusBar->addWidget(changed_);
    notice_->setObjectName("notice");
    ui_->statusBar->addWidget(notice_, 1);
    form_.ReadClipboard = [] { return FromQt(QGuiApplication::clipboard()->text()); };
    form_.WriteClipboard = [](const std::string& text) { QGuiApplication::clipboard()->setText(ToQt(text)); };
    BindTree();
    BindFilters();
    BindCells();
    BindButtons();
    BindForm();
    BindSizes();
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
    connect(ui_->tree, &QTreeWidget::itemActivated, ui_->grTexts, [this] { ui_->grTexts->setFocus(); });
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
    BindSearch();
    ui_->ckPattern->setVisible(form_.HasPatterns());
    connect(ui_->ckPattern, &QCheckBox::toggled, this, [this](bool checked) {
        ChangeFilter([checked](TTransFilter& filter) { filter.IsPattern = checked; });
    });
}

void TTransEditorView::BindSearch() {
    typing_.setSingleShot(true);
    typing_.setInterval(kFilterPause);
    connect(&typing_, &QTimer::timeout, this, [this] { Search(); });
    connect(ui_->filter, &QLineEdit::textChanged, this, [this] {
        if (!refreshing_) typing_.start();
    });
    binder_.Keys(this, QKeySequence::Find, [this] {
        ui_->filter->setFocus();
        ui_->filter->selectAll();
    });
    const auto leave = [this] {
        Search();
        ui_->grTexts->setFocus();
    };
    connect(ui_->filter, &QLineEdit::editingFinished, this, [this] { Search(); });
    connect(ui_->filter, &QLineEdit::returnPressed, this, leave);
    // Of the box alone: in the table the keys go down, and close the window.
    new QShortcut(Qt::Key_Down, ui_->filter, leave, Qt::WidgetShortcut);
    new QShortcut(
        Qt::Key_Escape, ui_->filter,
        [this, leave] {
            ui_->filter->clear();
            leave();
        },
        Qt::WidgetShortcut);
}

void TTransEditorView::Search() {
    typing_.stop();
    ChangeFilter([this](TTransFilter& filter) { filter.Text = FromQt(ui_->filter->text()); });
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
    cells.Typing = [this](const std::optional<QString>& text) {
        typed_ = text;
        DrawForm();
    };
    ui_->textSplitter->setStretchFactor(0, 1);
    for (QPlainTextEdit* box : {ui_->memBase, ui_->memFormer, ui_->memText})
        ShowBlanks(*box);
    ui_->memText->installEventFilter(this);
    cells.viewport()->installEventFilter(this);
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
    binder_.Keys(this, Qt::Key_F9, [this] {
        if (ui_->tree->hasFocus())
            ui_->grTexts->setFocus();
        else
            ui_->tree->setFocus();
    });
    // From the table to the box and back.
    binder_.Keys(this, Qt::CTRL | Qt::Key_Return, [this] {
        if (ui_->memText->hasFocus())
            ui_->grTexts->setFocus();
        else
            EditBelow(nullptr);
    });
}

void TTransEditorView::BindForm() {
    ui_->formSplitter->addWidget(pane_);
    ui_->ckForm->setChecked(services_.Places.WantsForm());
    pane_->setVisible(ui_->ckForm->isChecked());
    connect(ui_->ckForm, &QCheckBox::toggled, this, [this](bool checked) {
        StoreBoxes();
        services_.Places.SetWantsForm(checked);
        pane_->setVisible(checked);
        SizeBoxes();
    });
    connect(ui_->memText, &QPlainTextEdit::textChanged, this, [this] {
        if (!refreshing_) DrawForm();
    });
}

void TTransEditorView::Execute(const TAction& action) {
    if (typing_.isActive()) Search();
    TakeTyped();
    const TTransRow row = form_.Grid().Current().Row;
    Run([&] { action.Execute ? action.Execute() : services_.ShowHelp(form_.Name); });
    if (!form_.Grid().HasRow() || form_.Grid().Current().Row == row) return;
    // What is typed next is for the text that the command went to. The box is for texts of several lines:
    // Enter would break the line of another one.
    if (!ui_->memText->hasFocus() || !model_.HasLines(ui_->grTexts->currentIndex())) ui_->grTexts->setFocus();
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
    if (watched != ui_->memText) {
        if (event->type() == QEvent::Resize) LayOutColumns();
        return TView::eventFilter(watched, event);
    }
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

// --- the form

void TTransEditorView::DrawForm() {
    const TTransCell current = form_.Grid().Current();
    std::optional<std::string> typed;
    if (ui_->memText->document()->isModified()) typed = FromQt(ui_->memText->toPlainText());
    if (typed_) typed = FromQt(*typed_);
    pane_->Show(current.Row, current.Column, typed);
}

/// Without a form the least for the boxes, with one half of the height, where they stand below each other:
/// what is left goes to the grid.
void TTransEditorView::SizeBoxes() {
    const bool hasForm = !pane_->isHidden();
    const int line = fontMetrics().lineSpacing();
    const std::vector<int> stored = services_.Places.Sizes(hasForm ? kFormBoxSizes : kBoxSizes);
    const int usual = hasForm ? std::min(height() / 2, height() - kLinesAbove * line)
                              : std::min((kBoxLines + 2) * line, height() / 4);
    const int boxes = std::min(stored.empty() ? usual : ShownWidth(*this, stored.front()),
                               hasForm ? height() * 3 / 4 : height() / 2);
    ui_->textSplitter->setSizes({height() - boxes, boxes});
    const bool areStacked = hasForm && boxes >= kStackedLines * line;
    ui_->textsLayout->setDirection(areStacked ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    const int room = ui_->formSplitter->width();
    const std::vector<int> form = services_.Places.Sizes(kFormSizes);
    const int pane = form.empty() ? room / 2 : std::min(ShownWidth(*this, form.front()), room * 3 / 4);
    ui_->formSplitter->setSizes({room - pane, pane});
}

void TTransEditorView::StoreBoxes() {
    const QSplitter& boxes = *ui_->textSplitter;
    StoreSize(pane_->isHidden() ? kBoxSizes : kFormBoxSizes, boxes, boxes.sizes().back());
    StoreSize(kFormSizes, *ui_->formSplitter, ui_->formSplitter->sizes().back());
}

void TTransEditorView::StoreSize(const char* name, const QSplitter& splitter, int size) {
    if (moved_.erase(&splitter) > 0) services_.Places.SetSizes(name, {DesignWidth(*this, size)});
}

void TTransEditorView::BindSizes() {
    for (const QSplitter* splitter : {ui_->splitter, ui_->textSplitter, ui_->formSplitter})
        connect(splitter, &QSplitter::splitterMoved, this, [this, splitter] { moved_.insert(splitter); });
    connect(ui_->grTexts->horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int, int width) {
                if (layingOut_ || widths_.empty()) return;
                widths_[static_cast<std::size_t>(column)] = DesignWidth(*this, width);
                areSized_ = true;
            });
}

// --- showing

void TTransEditorView::showEvent(QShowEvent* event) {
    TView::showEvent(event);
    if (!event->spontaneous()) LayOut();
}

void TTransEditorView::LayOut() {
    layout()->activate();
    const std::vector<int> tree = services_.Places.Sizes(kTreeSizes);
    const int treeWidth = ShownWidth(*this, tree.empty() ? kTreeWidth : tree.front());
    ui_->splitter->setSizes({std::min(treeWidth, width() / 2), width()});
    SizeBoxes();
    widths_ = services_.Places.Sizes(kColumnSizes);
    widths_.resize(std::max(widths_.size(), static_cast<std::size_t>(form_.ColumnCount())));
    LayOutColumns();
    ui_->grTexts->scrollTo(ui_->grTexts->currentIndex());
}

/// Columns that nobody has sized share what the others leave.
void TTransEditorView::LayOutColumns() {
    if (layingOut_ || widths_.empty()) return;
    layingOut_ = true;
    QTableView& cells = *ui_->grTexts;
    const auto count = static_cast<std::size_t>(form_.ColumnCount());
    int left = cells.viewport()->width(), sharing = 0;
    for (std::size_t i = 0; i < count; ++i) {
        left -= ShownWidth(*this, widths_[i]);
        sharing += widths_[i] == 0 ? 1 : 0;
    }
    const int share = std::max(left / std::max(sharing, 1), ShownWidth(*this, kTextWidth));
    for (std::size_t i = 0; i < count; ++i)
        cells.setColumnWidth(static_cast<int>(i), widths_[i] > 0 ? ShownWidth(*this, widths_[i]) : share);
    layingOut_ = false;
}

void TTransEditorView::BeforeClose() {
    if (areSized_) services_.Places.SetSizes(kColumnSizes, widths_);
    StoreSize(kTreeSizes, *ui_->splitter, ui_->splitter->sizes().front());
    StoreBoxes();
}

// --- the disk

std::vector<std::string> TTransEditorView::FilesOfForms() const {
    const auto modules = services_.Host.Services->GetModuleServices();
    std::vector<std::string> files;
    for (const TTransForm& form : form_.Texts().Forms()) {
        const auto module = modules->FindFormModule(form.Name);
        if (module == nullptr) continue;
        files.push_back(module->GetFileName());
        if (const auto editor = module->GetFormEditor()) files.push_back(editor->GetFileName());
    }
    return files;
}

bool TTransEditorView::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        const std::string files = onDisk_.Changed();
        changed_->setText(files.empty() ? QString() : "Changed on the disk: " + ToQt(files));
    }
    return TView::event(event);
}

void TTransEditorView::Refresh() {
    if (refreshing_) return;
    refreshing_ = true;
    ui_->grTexts->ShowCells();
    binder_.Refresh();
    actions_->Refresh();
    RefreshTree();
    RefreshFilters();
    RefreshTexts();
    RefreshStatus();
    DrawForm();
    refreshing_ = false;
}

int TTransEditorView::ProgressColumn() const {
    const int current = form_.Grid().Column();
    const bool isTranslation = form_.NodeProgress(form_.Node(), current).Texts > 0;
    return isTranslation ? current : form_.FirstTranslation();
}

void TTransEditorView::RefreshTree() {
    ui_->tree->setCurrentItem(nodes_[static_cast<std::size_t>(form_.Node())]);
    const int column = ProgressColumn();
    ui_->tree->headerItem()->setText(1, ToQt(form_.ColumnCaption(column)));
    for (std::size_t i = 0; i < nodes_.size(); ++i)
        nodes_[i]->setText(1, ShareText(form_.NodeProgress(static_cast<int>(i), column)));
}

void TTransEditorView::RefreshFilters() {
    const TTransFilter& filter = form_.Filter();
    ui_->cbShow->setCurrentIndex(static_cast<int>(filter.Show));
    ui_->cbLanguage->setCurrentIndex(std::max(0, ui_->cbLanguage->findText(ToQt(filter.Language))));
    ui_->cbLanguage->setEnabled(filter.Show != TTransShow::All);
    if (!typing_.isActive() && FromQt(ui_->filter->text()) != filter.Text)
        ui_->filter->setText(ToQt(filter.Text));
    ui_->ckPattern->setChecked(filter.IsPattern);
    const int shown = form_.Grid().Count(), all = form_.RowCount();
    ui_->filterCount->setText(shown == all ? QString("%1 rows").arg(all)
                                           : QString("%1 of %2 rows").arg(shown).arg(all));
}

void TTransEditorView::ShowText(QPlainTextEdit& box, const QString& text, int column) {
    const bool mirrored = model_.IsRightToLeft(column);
    QTextOption option = box.document()->defaultTextOption();
    option.setTextDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    option.setAlignment(mirrored ? Qt::AlignRight : Qt::AlignLeft);
    box.document()->setDefaultTextOption(option);
    // The caret of somebody who types stays; of one who goes on to another text all is selected.
    if (box.toPlainText() != text) {
        box.setPlainText(text);
        if (box.hasFocus()) box.selectAll();
    }
    box.document()->setModified(false);
}

void TTransEditorView::RefreshTexts() {
    const TTransGrid& grid = form_.Grid();
    const bool hasRow = grid.HasRow();
    const int place = grid.Place(), column = grid.Column();
    const auto text = [&](int of) {
        return hasRow ? ToQt(form_.Text(place, of)).replace("\r\n", "\n") : QString();
    };
    const int base = hasRow ? form_.BaseColumn(place) : 1;
    const QString whose =
        hasRow ? " - " + ToQt(form_.FormName(place)) + ", " + ToQt(form_.Text(place, 0)) : QString();
    ui_->lblBase->setText(ToQt(form_.ColumnCaption(base)) + whose + ":");
    ShowText(*ui_->memBase, text(base), base);
    const QString former = hasRow ? ToQt(form_.FormerBase(place, column)).replace("\r\n", "\n") : QString();
    ui_->lblFormer->setVisible(!former.isEmpty());
    ui_->memFormer->setVisible(!former.isEmpty());
    ShowText(*ui_->memFormer, former, base);
    QString caption = ToQt(form_.ColumnCaption(column));
    const QString state = hasRow ? StateText(form_, place, column) : QString();
    if (!state.isEmpty()) caption += " (" + state + ")";
    ui_->lblText->setText(caption + ":");
    ui_->memText->setReadOnly(!hasRow || column == 0 || !form_.IsEditable(place, column));
    if (!ui_->memText->document()->isModified()) ShowText(*ui_->memText, text(column), column);
}

void TTransEditorView::RefreshStatus() {
    const int column = ProgressColumn();
    const TTransProgress progress = form_.NodeProgress(form_.Node(), column);
    QString text;
    if (progress.Texts > 0)
        text = QString("%1, %2: %3 of %4 texts done (%5 %)")
                   .arg(ToQt(form_.ColumnCaption(column)))
                   .arg(ToQt(form_.Tree[static_cast<std::size_t>(form_.Node())].Caption))
                   .arg(progress.Done())
                   .arg(progress.Texts)
                   .arg(progress.Percent());
    progress_->setText(text);
    notice_->setText(ToQt(form_.Notice) +
                     (form_.IsPatternBroken() ? ProblemOf(ToQt(form_.Filter().Text)) : QString()));
}

}  // namespace tml
