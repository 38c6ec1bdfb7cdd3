#include "desktop/Wizardview.h"

#include <QFontDatabase>
#include <QHeaderView>
#include <QShortcut>
#include <algorithm>

#include "desktop/Filterbox.h"
#include "desktop/Listmodel.h"
#include "desktop/Texts.h"
#include "ui_Wizardview.h"

namespace tml {
namespace {

constexpr int kTitleGrowth = 3;  ///< points that the title is greater
constexpr int kStepsMargin = 24;

}  // namespace

TWizardView::TWizardView(TfrmWizard& form, const TViewServices& services)
    : form_(form),
      runner_(services.Runner),
      ui_(std::make_unique<Ui::Wizardview>()),
      binder_(services.Runner),
      forms_([&form]() -> TGrid& { return form.sgForms; }),
      strings_([&form]() -> TGrid& { return form.sgStrings; }),
      plan_([&form]() -> TGrid& { return form.sgPlan; }) {
    ui_->setupUi(this);
    LayOut();
    BindTable(*ui_->sgForms, forms_);
    BindTable(*ui_->sgStrings, strings_);
    BindTable(*ui_->sgPlan, plan_);
    ui_->sgPlan->setSelectionMode(QAbstractItemView::SingleSelection);
    BindPages();
    BindButtons(services);
}

TWizardView::~TWizardView() = default;

void TWizardView::LayOut() {
    for (const char* const step :
         {"Forms", "Component", "Languages", "Dispatcher", "Exclusions", "Strings", "Summary", "Outcome"})
        ui_->steps->addItem(step);
    ui_->steps->setFixedWidth(ui_->steps->sizeHintForColumn(0) + kStepsMargin);
    QFont title = ui_->pageTitle->font();
    title.setPointSize(title.pointSize() + kTitleGrowth);
    ui_->pageTitle->setFont(title);
    for (QPlainTextEdit* pane : {ui_->memPlan, ui_->memReport})
        pane->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
}

void TWizardView::BindTable(TRowTable& table, TGridModel& model) {
    model.Run = [this](const std::function<void()>& work) { runner_.Run(work); };
    table.setModel(&model);
    SetUpTable(table);
    table.horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    table.setSortingEnabled(true);
    const auto& columns = model.Grid().Columns;
    for (std::size_t i = 0; i + 1 < columns.size(); ++i)
        table.setColumnWidth(static_cast<int>(i), ShownWidth(*this, columns[i].Width));
    table.horizontalHeader()->setStretchLastSection(true);
}

void TWizardView::BindChoice(QWidget& page, TRowTable& table, QLineEdit& filter, TGrid& grid,
                             const std::function<void()>& take) {
    BindFilter(page, filter, table, runner_, [&grid](const std::string& text) { grid.SetFilter(text); });
    new QShortcut(
        Qt::Key_Space, &table, [this, take] { runner_.Run(take); }, Qt::WidgetShortcut);
}

void TWizardView::BindPages() {
    TfrmWizard& form = form_;
    binder_.Label(ui_->pageTitle, form.PageTitle);
    binder_.Label(ui_->pageHint, form.PageHint);
    binder_.Label(ui_->lblForms, form.lblForms);
    BindChoice(*ui_->pageForms, *ui_->sgForms, *ui_->filterForms, form.sgForms,
               [&form] { form.acTakeForms(); });
    binder_.Click(ui_->btTakeForms, [&form] { form.acTakeForms(); });
    binder_.Click(ui_->btTakeAllForms, [&form] { form.acTakeAllForms(); });
    binder_.Choice(ui_->cbClass, form.cbClass, [&form] { form.cbClassChange(); });
    binder_.Text(ui_->edName, form.edName);
    binder_.Check(ui_->ckbPackage, form.ckbPackage);
    binder_.Names(ui_->lbLanguages, form.lbLanguages.Items, form.lbLanguages.Selected);
    binder_.Click(ui_->btConfigure, [&form] { form.btConfigureClick(); });
    binder_.Check(ui_->ckbGiveUp, form.ckbGiveUp);
    binder_.Choice(ui_->cbDispatcher, form.cbDispatcher);
    binder_.Choice(ui_->cbContainer, form.cbContainer);
    binder_.Enabled(ui_->cbContainer, form.ContainerEnabled);
    binder_.Lines(ui_->memDoNotTranslate, form.memDoNotTranslate);
    binder_.Lines(ui_->memExcludedProperties, form.memExcludedProperties);
    binder_.Lines(ui_->memSmartExcludeProps, form.memSmartExcludeProps);
    binder_.Label(ui_->lblProperties, form.lblProperties);
    binder_.Lines(ui_->memProperties, form.memProperties);
    binder_.Check(ui_->ckbStrings, form.ckbStrings, [&form] { form.ckbStringsChange(); });
    binder_.Click(ui_->btScan, [&form] { form.btScanClick(); });
    binder_.Label(ui_->lblStrings, form.lblStrings);
    BindChoice(*ui_->pageStrings, *ui_->sgStrings, *ui_->filterStrings, form.sgStrings,
               [&form] { form.acTakeStrings(); });
    binder_.Click(ui_->btTakeStrings, [&form] { form.acTakeStrings(); });
    binder_.Click(ui_->btShowChange, [&form] { form.acShowChange(); });
    binder_.Click(ui_->btSaveReport, [&form] { form.btSaveReportClick(); });
}

void TWizardView::BindButtons(const TViewServices& services) {
    TfrmWizard& form = form_;
    const auto help = [&form, &services] { services.ShowHelp(form.Name); };
    binder_.Click(ui_->btHelp, help);
    binder_.Keys(this, QKeySequence::HelpContents, help);
    binder_.Click(ui_->btBack, [&form] { form.btBackClick(); });
    binder_.Click(ui_->btNext, [&form] { form.btNextClick(); });
    binder_.Click(ui_->btFinish, [&form] { form.btFinishClick(); });
    binder_.Click(ui_->btCancel, [&form] { form.btCancelClick(); });
    binder_.Keys(this, QKeySequence(Qt::ALT | Qt::Key_Left), [&form] { form.btBackClick(); });
    binder_.Keys(this, QKeySequence(Qt::ALT | Qt::Key_Right), [&form] { form.btNextClick(); });
}

void TWizardView::Refresh() {
    for (TRowTable* table : {ui_->sgForms, ui_->sgStrings, ui_->sgPlan})
        table->ShowGrid();
    binder_.Refresh();
    ui_->ckbPackage->setVisible(form_.PackageVisible);
    ui_->btScan->setEnabled(form_.ScanEnabled());
    ui_->btTakeStrings->setEnabled(form_.HasStrings());
    ui_->btShowChange->setText(form_.ShowsChange ? "Show &Steps" : "Show &Change");
    ui_->memPlan->setPlainText(ToQt(form_.memPlan));
    ui_->memReport->setPlainText(ToQt(form_.memReport));
    ui_->btBack->setEnabled(form_.BackEnabled());
    ui_->btNext->setEnabled(form_.NextEnabled());
    ui_->btFinish->setEnabled(form_.FinishEnabled());
    ui_->btFinish->setText(form_.IsDone() ? "&Close" : "&Finish");
    ui_->btCancel->setVisible(!form_.IsDone());
    ShowPage();
}

/// The focus goes to what the page is about, and Enter to the button that leads on.
void TWizardView::ShowPage() {
    const int page = static_cast<int>(form_.Page);
    if (page == shownPage_) return;
    shownPage_ = page;
    ui_->pages->setCurrentIndex(page);
    for (int step = 0; step < ui_->steps->count(); ++step) {
        QFont font = ui_->steps->font();
        font.setBold(step == page);
        ui_->steps->item(step)->setFont(font);
    }
    (form_.FinishEnabled() ? ui_->btFinish : ui_->btNext)->setDefault(true);
    QWidget* const first[] = {ui_->sgForms,           ui_->cbClass,    ui_->btConfigure, ui_->cbDispatcher,
                              ui_->memDoNotTranslate, ui_->ckbStrings, ui_->sgPlan,      ui_->memReport};
    first[page]->setFocus();
}

}  // namespace tml
