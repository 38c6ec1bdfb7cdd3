#include "setup/Wizard.h"

#include <algorithm>
#include <array>
#include <map>
#include <numeric>

#include "base/Errors.h"
#include "base/Format.h"
#include "core/Formrows.h"
#include "core/Modules.h"
#include "setup/Furtherproperties.h"
#include "setup/Requiredpackage.h"
#include "setup/Setupplanner.h"
#include "translations/Langconfig.h"
#include "windows/Filedialogs.h"

namespace tml {
namespace {

struct TPageText {
    std::string_view Title;
    std::string_view Hint;
};

constexpr std::array<TPageText, kWizardPages> kPageTexts{
    TPageText{"Forms", "Which forms are to be set up for translation?"},
    TPageText{"Component", "Forms without a localization component get one. Those that are there stay."},
    TPageText{"Languages", "The languages of the forms, base language first."},
    TPageText{"Dispatcher and common container",
              "One dispatcher sets the language of all forms; a common container holds strings for all."},
    TPageText{"Exclusions and further properties",
              "What is not to be translated, one entry a line. The lists of the components keep what they "
              "hold."},
    TPageText{"Strings in source",
              "The strings of the forms' units can be moved into the components now, or later form by form."},
    TPageText{"Summary", "This is what will be done. Nothing is changed before Finish."},
    TPageText{
        "Outcome",
        "This is what was done. Undo takes all of it back in one step, while one of these forms or no file "
        "is in front."},
};

enum TWizardFormsColumn { wfTaken, wfForm, wfUnit, wfComponent, wfState };
enum TWizardStringsColumn { wsTaken, wsForm, wsLine, wsText, wsID, wsAdvice };
enum TWizardPlanColumn { wpForm, wpState, wpFiles };

// The last columns take the room that is left.
const std::vector<TGridColumn> kFormsColumns{{.Caption = "Set up", .Width = 50, .IsSearched = false},
                                             {.Caption = "Form Name", .Width = 100},
                                             {.Caption = "Unit", .Width = 110},
                                             {.Caption = "Component", .Width = 130},
                                             {.Caption = "State", .Width = 160}};
const std::vector<TGridColumn> kStringsColumns{{.Caption = "Move", .Width = 50, .IsSearched = false},
                                               {.Caption = "Form Name", .Width = 95},
                                               {.Caption = "Line #", .Width = 50, .IsNumber = true},
                                               {.Caption = "String", .Width = 180, .MarksBlanks = true},
                                               {.Caption = "String ID", .Width = 60},
                                               {.Caption = "Advice", .Width = 120, .IsSearched = false}};
const std::vector<TGridColumn> kPlanColumns{{.Caption = "Form Name", .Width = 130},
                                            {.Caption = "State", .Width = 210},
                                            {.Caption = "Files", .Width = 210}};

constexpr const char* kNone = "(none)";
constexpr std::string_view kNoWork = "There is nothing to do: no form would change.";
constexpr const char* kYes = "Yes";
constexpr const char* kNo = "No";

std::string ReadinessOf(const TFormSetup& form) {
    if (!form.IsReady()) return "Not ready: " + form.Reason;
    if (!form.Ancestor.empty()) return Format("Ready; inherits from %s", form.Ancestor);
    return form.Inserts ? "Ready" : "Ready; keeps its component";
}

TGridLook LookOf(const TFormSetup& form) {
    TGridLook look;
    look.Hint = form.Problem;
    if (!form.IsReady()) look.Picture = "error";
    return look;
}

std::vector<int> PlacesUpTo(std::size_t count) {
    std::vector<int> numbers(count);
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

TChoiceBox FormsOrNone(TContext& context, const std::string& chosen) {
    TChoiceBox box = FormsBox(context, chosen);
    box.Items.Insert(0, kNone);
    ++box.ItemIndex;
    return box;
}

std::string ChosenForm(const TChoiceBox& box) {
    return box.ItemIndex <= 0 ? std::string() : box.Text();
}

void AddEntries(TExclusionLists& lists, TExclusionList list, const TStringList& lines) {
    for (const std::string& line : lines)
        AddExclusion(lists, list, line);
}

}  // namespace

// --- what is shown

TfrmWizard::TfrmWizard(TContext& context, TScanMemory& memory, const std::vector<TFormRow*>& rows)
    : context_(context), memory_(memory) {
    Name = "frmWizard";
    Caption = "Translation Wizard";
    ActiveControl = "sgForms";
    SetUpGrids();
    const TSetupWishes wishes = DefaultWishes(context);
    SetUpBoxes(wishes);
    ReadForms(rows);
    GoTo(TWizardPage::Forms);
}

void TfrmWizard::SetUpGrids() {
    sgForms.Columns = kFormsColumns;
    sgForms.Cell = [this](int row, int column) { return FormCell(row, column); };
    sgForms.Look = [this](int row) {
        TGridLook look = LookOf(forms_[static_cast<std::size_t>(row)]);
        look.Grey = !IsTaken(row);
        return look;
    };
    sgStrings.Columns = kStringsColumns;
    sgStrings.Cell = [this](int row, int column) { return StringCell(row, column); };
    sgStrings.Look = [this](int row) { return StringLook(row); };
    sgPlan.Columns = kPlanColumns;
    sgPlan.Cell = [this](int row, int column) { return PlanCell(row, column); };
    sgPlan.Look = [this](int row) { return LookOf(plan_.Forms[static_cast<std::size_t>(row)]); };
    sgPlan.OnChange = [this] { ShowPlan(); };
}

void TfrmWizard::SetUpBoxes(const TSetupWishes& wishes) {
    cbClass.Items = TStringList(context_.Host.Runtime->NamesArray());
    cbClass.ItemIndex = std::max(cbClass.Items.IndexOf(wishes.ComponentClass), 0);
    lbLanguages = TNamesBox(wishes.Languages);
    cbDispatcher = FormsOrNone(context_, wishes.DispatcherForm);
    cbContainer = FormsOrNone(context_, wishes.ContainerForm);
    const std::string project = PackageProject(context_);
    PackageVisible = !project.empty() && !RequiresPackage(context_, project);
    ckbPackage = PackageVisible;
    lblProperties = "F&urther properties (" + FurtherProperties() + "):";
}

/// In the order of the list, whatever the order of the plan is. Where forms have languages, the first one's
/// are proposed.
void TfrmWizard::ReadForms(const std::vector<TFormRow*>& rows) {
    std::vector<TFormRow*> all;
    for (const auto& row : context_.Rows.FormNames.Items())
        all.push_back(row.get());
    TSetupWishes wishes;
    wishes.ComponentClass = cbClass.Text();
    wishes.Languages = lbLanguages.Items;
    wishes.GivesUpLanguages = true;  // which languages is asked on a later page
    std::map<std::string, TFormSetup> byFile;
    for (TFormSetup& form : PlanSetup(context_, all, wishes).Forms)
        byFile.emplace(form.FileName, std::move(form));
    for (TFormRow* row : all) {
        forms_.push_back(std::move(byFile[row->FileName]));
        taken_.push_back(std::find(rows.begin(), rows.end(), row) != rows.end());
    }
    sgForms.Assign(PlacesUpTo(forms_.size()));
    const auto named = std::find_if(forms_.begin(), forms_.end(),
                                    [](const TFormSetup& form) { return !form.Languages.Empty(); });
    if (named != forms_.end()) lbLanguages = TNamesBox(named->Languages);
}

std::string TfrmWizard::FormCell(int row, int column) const {
    const TFormSetup& form = forms_[static_cast<std::size_t>(row)];
    switch (column) {
        case wfTaken:
            return IsTaken(row) ? kYes : kNo;
        case wfForm:
            return form.FormName;
        case wfUnit:
            return FileNameOf(form.FileName);
        case wfComponent:
            return form.Inserts ? std::string() : form.Component;
        default:
            return ReadinessOf(form);
    }
}

const TSetupString& TfrmWizard::StringAt(int row) const {
    const TPlace& place = strings_[static_cast<std::size_t>(row)];
    return plan_.Forms[place.Form].Strings->at(place.String);
}

TSetupString& TfrmWizard::StringAt(int row) {
    const TPlace& place = strings_[static_cast<std::size_t>(row)];
    return plan_.Forms[place.Form].Strings->at(place.String);
}

std::string TfrmWizard::StringCell(int row, int column) const {
    const TSetupString& string = StringAt(row);
    switch (column) {
        case wsTaken:
            return string.Taken ? kYes : kNo;
        case wsForm:
            return plan_.Forms[strings_[static_cast<std::size_t>(row)].Form].FormName;
        case wsLine:
            return std::to_string(string.Line);
        case wsText:
            return string.Text;
        case wsID:
            return string.ID;
        default:
            return std::string(AdviceText(string.Advice));
    }
}

TGridLook TfrmWizard::StringLook(int row) const {
    TGridLook look;
    look.Grey = !StringAt(row).Taken;
    if (StringAt(row).Advice != TAdvice::None) look.Picture = "advice";
    return look;
}

std::string TfrmWizard::PlanCell(int row, int column) const {
    const TFormSetup& form = plan_.Forms[static_cast<std::size_t>(row)];
    if (column == wpForm) return form.FormName;
    if (column == wpState)
        return form.IsReady() && !plan_.Changes(form) ? "Nothing to do" : ReadinessOf(form);
    std::string files;
    for (const std::string& file : plan_.FilesOf(form))
        files += (files.empty() ? "" : ", ") + FileNameOf(file);
    return files;
}

/// One that is not ready is planned where it is chosen, so that the summary says why it stays as it is.
bool TfrmWizard::IsTaken(int row) const {
    const auto place = static_cast<std::size_t>(row);
    return taken_[place] && forms_[place].IsReady();
}

int TfrmWizard::CountTakenForms() const {
    int count = 0;
    for (int row = 0; row < static_cast<int>(forms_.size()); ++row)
        count += IsTaken(row) ? 1 : 0;
    return count;
}

void TfrmWizard::Update() {
    lblForms = Format("Forms to be set up: %d of %d", CountTakenForms(), static_cast<int>(forms_.size()));
    if (const auto unready = std::count_if(forms_.begin(), forms_.end(),
                                           [](const TFormSetup& form) { return !form.IsReady(); });
        unready > 0)
        lblForms += Format("; not ready: %d", static_cast<int>(unready));
    const auto moved =
        std::accumulate(plan_.Forms.begin(), plan_.Forms.end(), 0,
                        [](int sum, const TFormSetup& form) { return sum + form.CountTaken(); });
    lblStrings = strings_.empty()
                     ? std::string()
                     : Format("Strings to be moved: %d of %d", moved, static_cast<int>(strings_.size()));
    ContainerEnabled = HasCommonContainer(context_, cbClass.Text());
    Changed();
}

// --- the way through the pages

bool TfrmWizard::BackEnabled() const {
    return Page != TWizardPage::Forms && !IsDone();
}

bool TfrmWizard::NextEnabled() const {
    return Page < TWizardPage::Summary && CountTakenForms() > 0;
}

bool TfrmWizard::FinishEnabled() const {
    return IsDone() || (Page == TWizardPage::Summary && plan_.HasWork());
}

void TfrmWizard::GoTo(TWizardPage page) {
    Page = page;
    const TPageText& text = kPageTexts.at(static_cast<std::size_t>(page));
    PageTitle = text.Title;
    PageHint = page == TWizardPage::Summary && !plan_.HasWork() ? kNoWork : text.Hint;
    Update();
}

void TfrmWizard::btBackClick() {
    if (BackEnabled()) GoTo(static_cast<TWizardPage>(static_cast<int>(Page) - 1));
}

void TfrmWizard::btNextClick() {
    if (!NextEnabled()) return;
    // What is wrong on a page is said before it is left.
    if (Page >= TWizardPage::Component) CheckWishes(context_, Wishes());
    const auto next = static_cast<TWizardPage>(static_cast<int>(Page) + 1);
    if (next == TWizardPage::Summary) {
        MakePlan();
        if (ckbStrings) FindStrings(context_, memory_, plan_);
        ListStrings();
        ShowsChange = false;
        sgPlan.Assign(PlacesUpTo(plan_.Forms.size()));
        ShowPlan();
    }
    GoTo(next);
}

void TfrmWizard::btFinishClick() {
    if (IsDone()) return Close(mrOk);
    if (FinishEnabled() && AgreesToLoss()) Run();
}

bool TfrmWizard::AgreesToLoss() const {
    const std::string loss = plan_.LossText();
    return loss.empty() || context_.Dialogs().MessageDlg(loss + ". Continue?", TMsgDlgType::mtWarning,
                                                         {mrYes, mrNo}) == mrYes;
}

TSetupWishes TfrmWizard::Wishes() const {
    TSetupWishes wishes;
    wishes.ComponentClass = cbClass.Text();
    wishes.ComponentName = edName;
    wishes.Languages = lbLanguages.Items;
    wishes.GivesUpLanguages = ckbGiveUp;
    wishes.DispatcherForm = ChosenForm(cbDispatcher);
    if (ContainerEnabled) wishes.ContainerForm = ChosenForm(cbContainer);
    AddEntries(wishes.Exclusions, TExclusionList::DoNotTranslate, memDoNotTranslate);
    AddEntries(wishes.Exclusions, TExclusionList::ExcludedProperties, memExcludedProperties);
    AddEntries(wishes.Exclusions, TExclusionList::SmartExcludeProps, memSmartExcludeProps);
    wishes.Properties = memProperties;
    wishes.MovesStrings = ckbStrings;
    wishes.AddsPackage = ckbPackage;
    return wishes;
}

/// What was decided of strings stays decided.
void TfrmWizard::MakePlan() {
    std::vector<TFormRow*> rows;
    for (std::size_t i = 0; i < forms_.size(); ++i)
        if (taken_[i]) rows.push_back(context_.Rows.FormNames.FindFile(forms_[i].FileName));
    TSetupPlan plan = PlanSetup(context_, rows, Wishes());
    std::map<std::string, TSetupStrings> decided;
    for (TFormSetup& form : plan_.Forms)
        if (form.Strings) decided.emplace(form.FileName, std::move(*form.Strings));
    for (TFormSetup& form : plan.Forms)
        if (const auto found = decided.find(form.FileName); found != decided.end())
            form.Strings = std::move(found->second);
    strings_.clear();
    sgStrings.Assign({});
    plan_ = std::move(plan);
}

void TfrmWizard::ListStrings() {
    strings_.clear();
    for (std::size_t form = 0; form < plan_.Forms.size(); ++form)
        for (std::size_t i = 0; plan_.Forms[form].Strings && i < plan_.Forms[form].Strings->size(); ++i)
            strings_.push_back({form, i});
    sgStrings.Assign(PlacesUpTo(strings_.size()));
}

void TfrmWizard::Run() {
    const TSetupOutcome outcome = RunSetup(context_, memory_, plan_);
    StoreLinks(context_, plan_.Wishes);
    memReport = outcome.Report();
    GoTo(TWizardPage::Outcome);
}

// --- the pages

void TfrmWizard::acTakeForms() {
    const std::vector<int> rows = sgForms.Affected();
    const bool take = std::none_of(rows.begin(), rows.end(), [this](int row) { return IsTaken(row); });
    for (const int row : rows)
        taken_[static_cast<std::size_t>(row)] = take;
    Update();
}

void TfrmWizard::acTakeAllForms() {
    taken_.assign(taken_.size(), true);
    Update();
}

void TfrmWizard::cbClassChange() {
    Update();
}

void TfrmWizard::btConfigureClick() {
    TStringList names = lbLanguages.Items;
    const auto takeAll = [](const TStringList&, const std::vector<int>&) { return true; };
    if (ConfigureLanguages(context_, names, takeAll) != mrOk) return;
    lbLanguages = TNamesBox(names);
    Update();
}

void TfrmWizard::btScanClick() {
    MakePlan();
    FindStrings(context_, memory_, plan_);
    ListStrings();
    Update();
}

void TfrmWizard::acTakeStrings() {
    const std::vector<int> rows = sgStrings.Affected();
    const bool take = std::none_of(rows.begin(), rows.end(), [this](int row) { return StringAt(row).Taken; });
    for (const int row : rows)
        StringAt(row).Taken = take && !ForbidsCall(StringAt(row).Advice);
    Update();
}

void TfrmWizard::acShowChange() {
    if (!HasPlan()) return;
    ShowsChange = !ShowsChange;
    ShowPlan();
}

/// A person who stops the work for the change sees the steps again.
void TfrmWizard::ShowPlan() {
    const int row = sgPlan.Current();
    memPlan.clear();
    if (row >= 0 && ShowsChange) {
        try {
            memPlan = DiffOfSetup(context_, memory_, plan_, static_cast<std::size_t>(row));
        } catch (const EmlLangSilent&) {
            ShowsChange = false;
        }
    }
    if (row >= 0 && !ShowsChange)
        memPlan = plan_.Head() + "\r\n" + plan_.TextOf(plan_.Forms[static_cast<std::size_t>(row)]);
    Changed();
}

void TfrmWizard::btSaveReportClick() {
    TSaveDialog dialog;
    dialog.Name = "SaveDialog";
    dialog.Caption = "Save Report";
    dialog.DefaultExt = "txt";
    dialog.Filter = "Texts (*.txt)|*.txt";
    dialog.OverwritePrompt = true;
    if (context_.Dialogs().ShowModal(dialog) != mrOk || dialog.Files.empty()) return;
    WriteFileSafely(*context_.Host.Files, dialog.Files.front(), memReport);
}

// --- the commands

void Wizard1Click(TContext& context, TScanMemory& memory) {
    std::vector<TFormRow*> rows;
    for (const auto& row : context.Rows.FormNames.Items())
        if (row->Selected) rows.push_back(row.get());
    TfrmWizard window(context, memory, rows);
    context.Dialogs().ShowModal(window);
}

void Wizards1Click(TContext& context, TScanMemory& memory) {
    std::vector<TFormRow*> rows;
    for (const auto& row : context.Rows.FormNames.Items())
        rows.push_back(row.get());
    TfrmWizard window(context, memory, rows);
    context.Dialogs().ShowModal(window);
}

}  // namespace tml
