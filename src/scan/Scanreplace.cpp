#include "scan/Scanreplace.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/Diff.h"
#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "core/Formfamilies.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "scan/Constreplace.h"
#include "scan/Duplicates.h"
#include "scan/Editorcommands.h"
#include "scan/Found.h"
#include "scan/Rewrite.h"
#include "scan/Scaninput.h"
#include "scan/Selunit.h"
#include "scan/Series.h"
#include "tables/Inheritedstrings.h"

namespace tml {
namespace {

constexpr std::string_view kReplaced =
    "Source file translated. All string constants added to \"Strings\" property.";

constexpr const char* kModifying = "Modifying source...";
constexpr int kSteps = 3;  ///< of it: planned and proven, the component, the source

/// A unit to run over, "" for that of the row's form.
struct TRunOver {
    TFormRow* Row;
    std::string UnitFile;
};

/// One run over one unit.
class TRun {
  public:
    /// series: nullptr for a run of its own. review: nullptr for that of a person.
    TRun(TContext& context, TScanMemory& memory, TFormRow& row, const std::string& unitFile,
         bool constSection, TSeries* series, const TReviewRows* review = nullptr)
        : context_(context),
          memory_(memory),
          row_(row),
          constSection_(constSection),
          series_(series),
          review_(review),
          formUnit_(row.FileName),
          unitFile_(unitFile.empty() ? formUnit_ : unitFile) {
        if (IsSeen()) end_.emplace(context.Dialogs());
    }

    /// False when there is nothing to change.
    bool Execute() {
        CheckLanguages();
        Open();
        if (text_->empty() || !FindStrings() || !Review()) return false;
        Modify();
        return true;
    }
    bool WritesCalls() const { return WritesCalls(strings_); }
    int StringsKept() const { return strings_.Count(); }

  private:
    /// A person follows the run.
    bool IsSeen() const { return review_ == nullptr; }
    static bool WritesCalls(const TmlFoundSourceStrings& kept);
    void CheckLanguages() const;
    void Open();
    TScanInput MakeInput();
    TReceiver Receiver();
    std::vector<std::string> Descendants() const;
    bool HasComponent(std::string_view form, std::string_view component) const;
    TTextRange Selection();
    bool FindStrings();
    void Verify();
    bool Review();
    bool ReviewByPerson();
    TChangeSet PlanChanges(const TmlFoundSourceStrings& kept) const;
    std::string DiffOf(const TmlFoundSourceStrings& kept) const;
    void Modify();
    void AddStrings(TmlCustomLang& lang) const;
    void AddToDescendants();
    void Apply(const TChangeSet& changes);

    /// False when the person wants to stop.
    bool ShowProgress(const std::string& text, int position, int maximum) {
        if (!IsSeen()) return true;
        const bool goesOn = context_.Dialogs().ShowProgress(text, position, maximum);
        if (!goesOn && series_ != nullptr) series_->Stop();
        return goesOn;
    }
    void Progress(const std::string& text, int position = 0, int maximum = 0) {
        if (!ShowProgress(text, position, maximum)) throw EmlLangSilent();
    }
    void Message(const std::string& text) {
        if (!IsSeen()) return;
        if (series_ != nullptr) return series_->Note(text);
        context_.Dialogs().HideProgress();
        context_.Dialogs().MessageDlg(text, TMsgDlgType::mtInformation, {mrOk});
    }

    TContext& context_;
    TScanMemory& memory_;
    std::optional<TProgressEnd> end_;
    TFormRow& row_;
    bool constSection_;
    TSeries* series_;
    const TReviewRows* review_;
    std::string formUnit_;
    std::string unitFile_;
    TLangPlan plan_;
    std::shared_ptr<const std::string> text_;
    TScanInput input_;
    std::optional<TConstRun> consts_;  ///< what a run over const sections does its own way
    TmlFoundSourceStrings strings_;    ///< found, then kept
};

/// Before anything is changed: Pascal cannot use a unit that is written in C++.
void TRun::CheckLanguages() const {
    if (LanguageOf(formUnit_).IsCPPSource && !LanguageOf(unitFile_).IsCPPSource)
        throw EBadInput(unitFile_, 0, "a Pascal unit cannot call a form that is written in C++",
                        "Choose a form of a Pascal unit");
}

void TRun::Open() {
    plan_ = PlanTmlLang(context_, row_, IsSeen());
    if (plan_.Name.empty())
        throw EBadInput(
            "", 0,
            "the class of new components, " + context_.Settings.Get().DefaultComp + ", is not registered",
            "Choose another default component in the options");
    if (!OpenFile(context_, unitFile_, IsSeen())) throw EmlLangSilent();
    text_ = GetModuleFromFileName(context_, unitFile_)->GetSourceEditor(0)->GetText();
    input_ = MakeInput();
    if (constSection_) consts_.emplace(context_, input_, row_.FormName, formUnit_);
}

TScanInput TRun::MakeInput() {
    ICommonLibraryLoader* loader = context_.Host.CommonLibrary;
    TScanInput input = ScanInputOf(context_.Settings.Get(), loader != nullptr ? loader->Load() : nullptr);
    TakeUnit(input, *GetModuleFromFileName(context_, unitFile_));
    TakeReceiver(input, Receiver(), SameText(unitFile_, formUnit_));
    input.Others = [this](std::string_view form, std::string_view component) {
        return HasComponent(form, component);
    };
    if (memory_.ScanMode == kScanSelection) input.Selection = Selection();
    input.Progress = [this](int found) {
        return ShowProgress(Format("Found strings so far: %d", found), 0, 0);
    };
    return input;
}

TReceiver TRun::Receiver() {
    IMlRuntime& runtime = *context_.Host.Runtime;
    TReceiver receiver = ReceiverOf(*GetModuleFromFileName(context_, formUnit_), plan_);
    for (const std::string& unit : Descendants()) {
        const TModuleLease opened(context_, unit);
        TakeRelative(receiver, runtime, *GetModuleFromFileName(context_, unit));
    }
    return receiver;
}

/// The units of the forms that inherit the component.
std::vector<std::string> TRun::Descendants() const {
    return FamiliesOf(context_.Rows.FormNames).DescendantsOf(row_.FormName);
}

bool TRun::HasComponent(std::string_view form, std::string_view component) const {
    const auto has = [&](const TFormRow* row) {
        return SameText(row == &row_ ? plan_.Name : row->Component.ComponentName, component);
    };
    const auto lists = context_.Rows.Both();
    return std::any_of(lists.begin(), lists.end(), [&](const TFormRows* list) {
        const std::vector<TFormRow*> rows = list->FindForms(form);
        return std::any_of(rows.begin(), rows.end(), has);
    });
}

TTextRange TRun::Selection() {
    const auto editor = GetModuleFromFileName(context_, unitFile_)->GetSourceEditor(0);
    const auto block = BlockOf(*editor);
    return block ? TTextRange{static_cast<std::size_t>(block->Begin), static_cast<std::size_t>(block->End)}
                 : TTextRange{};
}

bool TRun::FindStrings() {
    memory_.Skipped.clear();
    memory_.ScannedUnit = unitFile_;
    Progress("Scanning...");
    TScanResult result = consts_ ? consts_->Scan() : Scan(input_);
    memory_.Skipped = std::move(result.Skipped);
    strings_ = std::move(result.Found);
    if (!strings_.Empty()) return true;
    Message(consts_ ? NoConstsMessage(unitFile_)
                    : Format("No strings found in the \"%s\" source!", FileNameOf(unitFile_)));
    return false;
}

void TRun::Verify() {
    const int existing = static_cast<int>(input_.Existing.Entries().size());
    Progress("Verifying found strings...", 0, existing);
    VerifyAgainstExisting(strings_, input_.Existing, CallStyleOf(input_),
                          [&](int done) { Progress("Verifying found strings...", done, existing); });
    MergeDuplicates(strings_,
                    [this](int done) { Progress("Checking duplicates...", done, strings_.Count()); });
    if (consts_) consts_->FetchAnew(strings_);
}

bool TRun::Review() {
    Verify();
    if (IsSeen()) return ReviewByPerson();
    TFoundRows rows(std::move(strings_));
    if (!(*review_)(rows)) return false;
    strings_ = rows.Kept();
    return !strings_.Empty();
}

bool TRun::ReviewByPerson() {
    context_.Dialogs().HideProgress();
    TFoundInput found{unitFile_,           text_,          CallStyleOf(input_), input_.Existing,
                      std::move(strings_), input_.HCPrefix};
    if (consts_) {
        found.IDPrefix = context_.Settings.Get().CnstPrefix;
        found.CallOf = [this](const TmlFoundSourceString& row, const TCallStyle& rowStyle) {
            return consts_->CallOf(row, rowStyle);
        };
    }
    found.DiffOf = [this](const TmlFoundSourceStrings& kept) { return DiffOf(kept); };
    if (series_ != nullptr) found.Place = series_->Place();
    TfrmFound window(context_, memory_, std::move(found));
    const TModalResult result = context_.Dialogs().ShowModal(window);
    if (series_ != nullptr && result != mrOk && result != mrIgnore) series_->Stop();
    if (result != mrOk) return false;
    strings_ = window.Kept();
    return !strings_.Empty();
}

/// Every language of a new string begins with its text.
void TRun::AddStrings(TmlCustomLang& lang) const {
    TTable table = lang.GetTable(TStringsType::stStrings);
    const int languages = std::max(lang.GetLangNames().Count(), 1);
    for (const TmlFoundSourceString& row : strings_)
        if (!row.MarkedToIgnore) table.Add(row.StrID, row.StrContent, languages);
    lang.SetTable(table);
}

/// What the component holds now belongs into the lists that stand for its own.
void TRun::AddToDescendants() {
    IMlRuntime& runtime = *context_.Host.Runtime;
    for (const std::string& unit : Descendants()) {
        TModuleLease opened(context_, unit);
        const auto form = GetModuleFromFileName(context_, unit);
        const auto lang = FindCustomLang(runtime, *form->GetFormEditor());
        const auto ancestor = lang == nullptr ? nullptr : lang->GetInherited();
        if (ancestor == nullptr) continue;
        TTable table = lang->GetTable(TStringsType::stStrings);
        if (!TakeInheritedStrings(table, lang->GetLangNames(), ancestor->GetTable(TStringsType::stStrings),
                                  ancestor->GetLangNames()))
            continue;
        lang->SetTable(table);
        opened.Keep();
        MarkModifiedForm(context_, form->GetFormName());
    }
}

/// Rows that are all marked to be ignored leave their unit without a call.
bool TRun::WritesCalls(const TmlFoundSourceStrings& kept) {
    return std::any_of(kept.begin(), kept.end(),
                       [](const TmlFoundSourceString& row) { return !row.MarkedToIgnore; });
}

/// All but the strings; proven.
TChangeSet TRun::PlanChanges(const TmlFoundSourceStrings& kept) const {
    TChangeSet changes;
    changes.Title = "Replace strings of " + FileNameOf(unitFile_);
    if (consts_) {
        consts_->Plan(kept, text_, changes);
    } else {
        changes.Sources.push_back({unitFile_, text_, Rewrite(kept, input_)});
        ProveRewrite(kept, input_, changes.Sources.front().Edits);
    }
    if (!SameText(unitFile_, formUnit_) && WritesCalls(kept))
        changes.UsedUnits.emplace_back(unitFile_, FileNameOf(formUnit_));
    return changes;
}

/// Of the sources; why nothing can be changed where that is so.
std::string TRun::DiffOf(const TmlFoundSourceStrings& kept) const {
    if (kept.Empty()) return {};
    try {
        std::string diff;
        for (const TSourceChange& source : PlanChanges(kept).Sources) {
            const std::string name = FileNameOf(source.FileName);
            diff += UnifiedDiff(name, name, *source.Expected, ApplyEdits(*source.Expected, source.Edits));
        }
        return diff;
    } catch (const EBadInput& error) {
        return error.what();
    }
}

void TRun::Modify() {
    Progress(kModifying, 0, kSteps);
    const TChangeSet changes = PlanChanges(strings_);
    Progress(kModifying, 1, kSteps);
    Apply(changes);
}

/// The component first: its field is declared in the text that has been read. The edits of the sources,
/// worked out for that text, move along. Without Commit the scope takes everything back.
void TRun::Apply(const TChangeSet& changes) {
    const auto scope = BeginCommand(context_, "Replace hard-coded strings");
    if (WritesCalls()) {
        const auto lang = MakePlanned(context_, row_, plan_);
        if (lang == nullptr)
            throw EBadInput(formUnit_, 0, "the form takes no component of the class " + plan_.ClassName,
                            "Check that its package is loaded");
        AddStrings(*lang);
        MarkModifiedForm(context_, row_.FormName);
        AddToDescendants();
    }
    // What is begun is not stopped any more.
    if (IsSeen()) context_.Dialogs().ShowProgress(kModifying, 2, kSteps);
    GetModuleServices(context_)->ApplyChangeSet(changes);
    OpenFile(context_, unitFile_, IsSeen());
    scope->Commit();
}

/// One unit of a series; what it comes to is noted there.
void RunInSeries(TContext& context, TScanMemory& memory, const TRunOver& unit, bool constSection,
                 TSeries& series) {
    series.Begin();
    try {
        TRun run(context, memory, *unit.Row, unit.UnitFile, constSection, &series);
        if (run.Execute()) series.NoteChange(run.WritesCalls());
    } catch (const EmlLangSilent&) {
        if (!series.IsStopped())
            series.Note(Format("%s could not be used",
                               FileNameOf(unit.UnitFile.empty() ? unit.Row->FileName : unit.UnitFile)));
    } catch (const EBadInput& error) {
        series.Note(error.what());
    }
}

void RunOver(TContext& context, TScanMemory& memory, const std::vector<TRunOver>& units, bool constSection) {
    if (units.size() == 1) {
        DoScanReplace(context, memory, *units[0].Row, units[0].UnitFile, constSection);
        return;
    }
    TSeries series(static_cast<int>(units.size()));
    for (const TRunOver& unit : units)
        if (!series.IsStopped()) RunInSeries(context, memory, unit, constSection, series);
    UpdateStatusBar(context);
    if (const std::string summary = series.Summary(DoneMessage(constSection)); !summary.empty())
        context.Dialogs().MessageDlg(summary, TMsgDlgType::mtInformation, {mrOk});
}

void ReplaceInForm(TContext& context, TScanMemory& memory, bool constSection) {
    std::vector<TRunOver> units;
    for (const auto& row : context.Rows.Active().Items())
        if (row->Selected) units.push_back({row.get(), {}});
    RunOver(context, memory, units, constSection);
}

void ReplaceInUnits(TContext& context, TScanMemory& memory, bool constSection) {
    TfrmTranslUnits window(context);
    if (context.Dialogs().ShowModal(window) != mrOk) return;
    TFormRow* row = context.Rows.FormNames.FindForm(window.cbForm.Text());
    if (row == nullptr) return;
    std::vector<TRunOver> units;
    for (const std::string& unit : window.lbUnits.SelectedItems())
        units.push_back({row, unit});
    RunOver(context, memory, units, constSection);
}

}  // namespace

std::string DoneMessage(bool constSection) {
    return std::string(constSection ? kConstsReplaced : kReplaced);
}

bool DoScanReplace(TContext& context, TScanMemory& memory, TFormRow& row, const std::string& unitFile,
                   bool constSection) {
    if (GetModuleServices(context) == nullptr) return false;
    bool writesCalls = false;
    {
        TRun run(context, memory, row, unitFile, constSection, nullptr);
        if (!run.Execute()) return false;
        writesCalls = run.WritesCalls();
    }
    UpdateStatusBar(context);
    // Lines that were only marked to be ignored are seen in the source; there is nothing to be said of
    // strings.
    if (writesCalls)
        context.Dialogs().MessageDlg(DoneMessage(constSection), TMsgDlgType::mtInformation, {mrOk});
    return true;
}

int ReplaceReviewed(TContext& context, TScanMemory& memory, TFormRow& row, const TReviewRows& review) {
    TRun run(context, memory, row, {}, false, nullptr, &review);
    return run.Execute() ? run.StringsKept() : 0;
}

void SourceWithForm(TContext& context, TScanMemory& memory) {
    ReplaceInForm(context, memory, false);
}

void SourceWithoutForm(TContext& context, TScanMemory& memory) {
    ReplaceInUnits(context, memory, false);
}

void ConstWithForm(TContext& context, TScanMemory& memory) {
    ReplaceInForm(context, memory, true);
}

void ConstWithoutForm(TContext& context, TScanMemory& memory) {
    ReplaceInUnits(context, memory, true);
}

}  // namespace tml
