#include "desktop/Excludeview.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include "base/Errors.h"
#include "desktop/Exclusionpicture.h"
#include "desktop/Filterbox.h"
#include "desktop/Icons.h"
#include "desktop/Texts.h"
#include "ui_Excludeview.h"

namespace tml {
namespace {

constexpr int kOpenAtOnce = 300;  ///< properties that a search may open
constexpr int kSmartColumns = 3;
constexpr int kWarningSize = 16;
constexpr int kFormWidth = 420;
constexpr int kAroundPlace = 40;  ///< pixels around a component that is scrolled to
constexpr std::array kTreeWidths = {170, 170, 130};
/// What a rule is called in "texts that are ...".
constexpr std::array kSmartCaptions = {"empty",     "numbers",     "only punctuation",    "paths",
                                       "addresses", "identifiers", "the component's name"};

Qt::CheckState SmartState(TExclusionCheck check) {
    if (check == TExclusionCheck::Partly) return Qt::PartiallyChecked;
    return check == TExclusionCheck::Excluded ? Qt::Checked : Qt::Unchecked;
}

}  // namespace

TExcludeView::TExcludeView(TfrmExclude& form, const TViewServices& services)
    : form_(form),
      services_(services),
      ui_(std::make_unique<Ui::Excludeview>()),
      binder_(services.Runner),
      model_(form),
      entries_(form.lvEntries, {}),
      picture_(new TExclusionPicture) {
    ui_->setupUi(this);
    binder_.Text(ui_->edSearch, form.edSearch,
                 [&form](const std::string& text) { form.edSearchChange(text); });
    binder_.Keys(this, QKeySequence::Find, [this] { ui_->edSearch->setFocus(); });
    LeaveByKeys(*ui_->edSearch, *ui_->tree);
    BindTree();
    BindLists();
    ui_->formArea->setWidget(picture_);
    ui_->formArea->setBackgroundRole(QPalette::Mid);
    picture_->OnClick = [this](const std::string& path) {
        services_.Runner.Run([&] { form_.ComponentClick(path); });
    };
    ui_->effectIcon->setPixmap(PictureOf("advice").pixmap(kWarningSize));
    binder_.Label(ui_->lblShown, form.lblShown);
    binder_.Label(ui_->lblEffect, form.lblEffect);
    const auto help = [&form, &services] { services.ShowHelp(form.Name); };
    binder_.Click(ui_->btHelp, help);
    binder_.Keys(this, QKeySequence::HelpContents, help);
    binder_.Click(ui_->btOK, [&form] { form.btOKClick(); });
    binder_.Click(ui_->btCancel, [&form] { form.btCancelClick(); });
}

TExcludeView::~TExcludeView() = default;

void TExcludeView::BindTree() {
    QTreeView& tree = *ui_->tree;
    model_.Run = [this](const std::function<void()>& work) { services_.Runner.Run(work); };
    tree.setModel(&model_);
    connect(tree.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                if (isShowing_ || !index.isValid()) return;
                services_.Runner.Run([&] { form_.NodeClick(TExclusionModel::NodeOf(index)); });
            });
    connect(&tree, &QTreeView::expanded, this, [this](const QModelIndex& index) {
        if (!isShowing_) open_ += TExclusionModel::NodeOf(index);
    });
    connect(&tree, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
        if (!isShowing_) open_ -= TExclusionModel::NodeOf(index);
    });
    actions_ = std::make_unique<TActionBinding>(
        form_.Actions, *this, *ui_->toolBar, tree,
        [this](const TAction& action) { services_.Runner.Run([&] { action.Execute(); }); });
}

void TExcludeView::BindLists() {
    binder_.Check(ui_->ckbOnlyExcluded, form_.ckbOnlyExcluded,
                  [this] { form_.ckbOnlyExcludedClick(form_.ckbOnlyExcluded); });
    binder_.Check(ui_->ckbAllForms, form_.ckbAllForms, [this] { form_.ckbAllFormsClick(form_.ckbAllForms); });
    binder_.Check(ui_->ckbFormView, form_.ckbFormView, [this] { form_.ckbFormViewClick(form_.ckbFormView); });
    for (std::size_t i = 0; i < form_.SmartBoxes.size(); ++i) {
        auto* box = new QCheckBox(kSmartCaptions.at(i), this);
        box->setObjectName(ToQt("smart" + form_.SmartBoxes[i].Rule));
        const int place = static_cast<int>(i);
        ui_->smartLayout->addWidget(box, place / kSmartColumns, place % kSmartColumns);
        connect(box, &QCheckBox::clicked, this,
                [this, place](bool on) { services_.Runner.Run([&] { form_.SmartBoxClick(place, on); }); });
        smartBoxes_.push_back(box);
    }
    QTableView& table = *ui_->lvEntries;
    table.setModel(&entries_);
    SetUpTable(table);
    connect(table.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this, &table] {
        services_.Runner.Run([&] {
            SelectionToList(table, form_.lvEntries);
            form_.lvEntriesChange();
        });
    });
    binder_.Click(ui_->btnAddEntry, [this] { form_.btnAddEntryClick(); });
    binder_.Click(ui_->btnRemoveEntry, [this] { form_.btnRemoveEntryClick(); });
}

void TExcludeView::LayOut() {
    laidOut_ = true;
    for (std::size_t i = 0; i < kTreeWidths.size(); ++i) {
        const bool isStored = i < form_.ColumnWidths.size() && form_.ColumnWidths[i] > 0;
        const int width = isStored ? form_.ColumnWidths[i] : kTreeWidths[i];
        ui_->tree->setColumnWidth(static_cast<int>(i), ShownWidth(*this, width));
    }
    for (std::size_t i = 0; i + 1 < form_.lvEntries.Columns.size(); ++i)
        ui_->lvEntries->setColumnWidth(static_cast<int>(i),
                                       ShownWidth(*this, form_.lvEntries.Columns[i].Width));
    const int designed = std::min(ShownWidth(*this, kFormWidth), width() / 2);
    const int picture = form_.FormViewWidth > 0 ? form_.FormViewWidth : designed;
    ui_->splitter->setStretchFactor(0, 1);
    ui_->splitter->setStretchFactor(1, 0);
    ui_->splitter->setSizes({std::max(width() - picture, 1), picture});
}

void TExcludeView::BeforeClose() {
    form_.ColumnWidths.clear();
    for (int i = 0; i < model_.columnCount({}); ++i)
        form_.ColumnWidths.push_back(DesignWidth(*this, ui_->tree->columnWidth(i)));
    if (form_.ckbFormView) form_.FormViewWidth = ui_->splitter->sizes().last();
}

// --- showing

void TExcludeView::Refresh() {
    if (!laidOut_ && form_.Visible) LayOut();
    ShowTree();
    binder_.Refresh();
    actions_->Refresh();
    ShowSmartBoxes();
    entries_.Refresh();
    SelectionFromList(*ui_->lvEntries, form_.lvEntries);
    const TExclusionForm& current = form_.Forms()[static_cast<std::size_t>(form_.CurrentForm())];
    ui_->lblEntries->setText("&Entries of " + ToQt(current.FormName) + ":");
    ui_->btnRemoveEntry->setEnabled(form_.HasEntry());
    ui_->lblShown->setVisible(!form_.lblShown.empty());
    ui_->effectIcon->setVisible(form_.EffectWarns);
    ui_->formPane->setVisible(form_.ckbFormView);
    ShowPicture();
}

void TExcludeView::ShowTree() {
    const QScopedValueRollback showing(isShowing_, true);
    if (model_.Refresh()) Open();
    ShowCurrent();
    ui_->tree->viewport()->update();
}

void TExcludeView::Open() {
    QTreeView& tree = *ui_->tree;
    int shown = 0;
    for (const int form : form_.Tree().Roots())
        shown += form_.Tree().Node(form).Texts;
    const bool isSearch = !form_.edSearch.empty() || form_.ckbOnlyExcluded;
    if (isSearch && shown <= kOpenAtOnce) return tree.expandAll();
    if (form_.Tree().Roots().size() == 1) tree.expand(model_.index(0, 0, {}));
    for (const int node : open_)
        if (const QModelIndex index = model_.IndexOf(node); index.isValid()) tree.expand(index);
}

void TExcludeView::ShowCurrent() {
    QTreeView& tree = *ui_->tree;
    const QModelIndex index = model_.IndexOf(form_.Current);
    const bool isCurrent =
        tree.currentIndex().isValid() && TExclusionModel::NodeOf(tree.currentIndex()) == form_.Current;
    if (!index.isValid() || isCurrent) return;
    tree.setCurrentIndex(index);
    tree.scrollTo(index);
}

void TExcludeView::ShowSmartBoxes() {
    for (std::size_t i = 0; i < smartBoxes_.size(); ++i) {
        const QSignalBlocker quiet(smartBoxes_[i]);
        const TExclusionCheck state = form_.SmartBoxes[i].State;
        smartBoxes_[i]->setTristate(state == TExclusionCheck::Partly);
        smartBoxes_[i]->setCheckState(SmartState(state));
    }
}

/// Nothing while it is not shown.
void TExcludeView::ShowPicture() {
    if (!form_.ckbFormView || !form_.Visible) return;
    if (drawnForm_ != form_.CurrentForm()) {
        drawnForm_ = form_.CurrentForm();
        try {
            picture_->ShowForm(form_);
        } catch (const EBadInput& error) {
            ui_->legend->setText(ToQt(error.what()));
        }
    } else if (drawnRevision_ != form_.Revision() || drawnNode_ != form_.Current) {
        picture_->ShowMarks(form_);
    }
    drawnRevision_ = form_.Revision();
    if (drawnNode_ == form_.Current) return;
    drawnNode_ = form_.Current;
    const QPoint place = picture_->CurrentPlace().center();
    if (!picture_->CurrentPlace().isEmpty())
        ui_->formArea->ensureVisible(place.x(), place.y(), kAroundPlace, kAroundPlace);
}

}  // namespace tml
