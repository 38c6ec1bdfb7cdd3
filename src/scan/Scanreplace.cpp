#include "scan/Scanreplace.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "scan/Calls.h"
#include "scan/Constreplace.h"
#include "scan/Duplicates.h"
#include "scan/Editorcommands.h"
#include "scan/Found.h"
#include "scan/Rewrite.h"
#include "scan/Scaninput.h"
#include "scan/Selunit.h"

namespace tml {
namespace {

constexpr std::string_view kReplaced =
    "Source file translated. All string constants added to \"Strings\" property.";

/// One run over one unit.
class TRun {
  public:
    TRun(TContext& context, TScanMemory& memory, TFormRow& row, const std::string& unitFile,
         bool constSection)
        : context_(context),
          memory_(memory),
          end_(context.Dialogs()),
          row_(row),
          constSection_(constSection),
          formUnit_(row.FileName),
          unitFile_(unitFile.empty() ? formUnit_ : unitFile) {}

    /// False when there is nothing to change.
    bool Execute() {
        CheckLanguages();
        Open();
        if (text_->empty() || !FindStrings() || !Review()) return false;
        Modify();
        return true;
    }
    bool WritesCalls() const;

  private:
    void CheckLanguages() const;
    void Open();
    TScanInput MakeInput();
    TTextRange Selection();
    bool FindStrings();
    bool Review();
    void Modify();
    void AddStrings(TmlCustomLang& lang) const;
    void Apply(const TChangeSet& changes);

    void Progress(const std::string& text, int position = 0, int maximum = 0) {
        if (!context_.Dialogs().ShowProgress(text, position, maximum)) throw EmlLangSilent();
    }
    void Message(const std::string& text) {
        context_.Dialogs().HideProgress();
        context_.Dialogs().MessageDlg(text, TMsgDlgType::mtInformation, {mrOk});
    }

    TContext& context_;
    TScanMemory& memory_;
    TProgressEnd end_;
    TFormRow& row_;
    bool constSection_;
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
    plan_ = PlanTmlLang(context_, row_);
    if (plan_.Name.empty())
        throw EBadInput(
            "", 0,
            "the class of new components, " + context_.Settings.Get().DefaultComp + ", is not registered",
            "Choose another default component in the options");
    if (!OpenFile(context_, unitFile_, true)) throw EmlLangSilent();
    text_ = GetModuleFromFileName(context_, unitFile_)->GetSourceEditor(0)->GetText();
    input_ = MakeInput();
    if (constSection_) consts_.emplace(context_, input_, row_.FormName, formUnit_);
}

TScanInput TRun::MakeInput() {
    ICommonLibraryLoader* loader = context_.Host.CommonLibrary;
    TScanInput input = ScanInputOf(context_.Settings.Get(), loader != nullptr ? loader->Load() : nullptr);
    TakeUnit(input, *GetModuleFromFileName(context_, unitFile_));
    TakeReceiver(input, ReceiverOf(*GetModuleFromFileName(context_, formUnit_), plan_),
                 SameText(unitFile_, formUnit_));
    const auto others = std::make_shared<TFormComponents>();
    for (const auto& row : context_.Rows.FormNames.Items())
        others->Add(row->FormName, row.get() == &row_ ? plan_.Name : row->Component.ComponentName);
    input.Others = others;
    if (memory_.ScanMode == kScanSelection) input.Selection = Selection();
    input.Progress = [this](int found) {
        return context_.Dialogs().ShowProgress(Format("Found strings so far: %d", found));
    };
    return input;
}

TTextRange TRun::Selection() {
    const auto editor = GetModuleFromFileName(context_, unitFile_)->GetSourceEditor(0);
    const auto block = BlockOf(*editor);
    return block ? TTextRange{static_cast<std::size_t>(block->Begin), static_cast<std::size_t>(block->End)}
                 : TTextRange{};
}

bool TRun::FindStrings() {
    memory_.Skipped.clear();
    Progress("Scanning...");
    TScanResult result = consts_ ? consts_->Scan() : Scan(input_);
    memory_.Skipped = std::move(result.Skipped);
    strings_ = std::move(result.Found);
    if (!strings_.Empty()) return true;
    Message(consts_ ? NoConstsMessage(unitFile_)
                    : Format("No strings found in the \"%s\" source!", FileNameOf(unitFile_)));
    return false;
}

bool TRun::Review() {
    const TCallStyle style = CallStyleOf(input_);
    const int existing = static_cast<int>(input_.Existing.Entries().size());
    Progress("Verifying found strings...", 0, existing);
    VerifyAgainstExisting(strings_, input_.Existing, style);
    Progress("Checking duplicates...", 0, strings_.Count());
    MergeDuplicates(strings_);
    if (consts_) consts_->FetchAnew(strings_);
    context_.Dialogs().HideProgress();
    TFoundInput found{unitFile_, text_, style, input_.Existing, std::move(strings_), input_.HCPrefix};
    if (consts_) {
        found.IDPrefix = context_.Settings.Get().CnstPrefix;
        found.CallOf = [this](const TmlFoundSourceString& row, const TCallStyle& rowStyle) {
            return consts_->CallOf(row, rowStyle);
        };
    }
    TfrmFound window(context_, memory_, std::move(found));
    if (context_.Dialogs().ShowModal(window) != mrOk) return false;
    strings_ = window.Kept();
    return !strings_.Empty();
}

/// Every language of a new string begins with its text.
void TRun::AddStrings(TmlCustomLang& lang) const {
    TTable table = input_.Existing;
    const int languages = std::max(lang.GetLangNames().Count(), 1);
    for (const TmlFoundSourceString& row : strings_)
        if (!row.MarkedToIgnore) table.Add(row.StrID, row.StrContent, languages);
    lang.SetTable(table);
}

/// Rows that are all marked to be ignored leave their unit without a call.
bool TRun::WritesCalls() const {
    return std::any_of(strings_.begin(), strings_.end(),
                       [](const TmlFoundSourceString& row) { return !row.MarkedToIgnore; });
}

void TRun::Modify() {
    Progress("Modifying source...");
    TChangeSet changes;
    changes.Title = "Replace strings of " + FileNameOf(unitFile_);
    if (consts_) {
        consts_->Plan(strings_, text_, changes);
    } else {
        changes.Sources.push_back({unitFile_, text_, Rewrite(strings_, input_)});
        ProveRewrite(strings_, input_, changes.Sources.front().Edits);
    }
    if (!SameText(unitFile_, formUnit_) && WritesCalls())
        changes.UsedUnits.emplace_back(unitFile_, FileNameOf(formUnit_));
    Apply(changes);
}

/// The component first: its field is declared in the text that has been read. The edits of the sources,
/// worked out for that text, move along. Without Commit the scope takes everything back.
void TRun::Apply(const TChangeSet& changes) {
    TRowGuard guard(row_);
    const auto scope = BeginCommand(context_, "Replace hard-coded strings");
    if (WritesCalls()) {
        const auto lang = MakePlanned(context_, row_, plan_);
        if (lang == nullptr)
            throw EBadInput(formUnit_, 0, "the form takes no component of the class " + plan_.ClassName,
                            "Check that its package is loaded");
        AddStrings(*lang);
        MarkModifiedForm(context_, row_.FormName);
    }
    GetModuleServices(context_)->ApplyChangeSet(changes);
    OpenFile(context_, unitFile_, true);
    scope->Commit();
    guard.Keep();
}

void ReplaceInForm(TContext& context, TScanMemory& memory, bool constSection) {
    if (TFormRow* row = context.Rows.Active().FirstSelected())
        DoScanReplace(context, memory, *row, {}, constSection);
}

void ReplaceInUnits(TContext& context, TScanMemory& memory, bool constSection) {
    TfrmTranslUnits window(context);
    if (context.Dialogs().ShowModal(window) != mrOk) return;
    TFormRow* row = context.Rows.FormNames.FindForm(window.cbForm.Text());
    if (row == nullptr) return;
    for (const std::string& unit : window.lbUnits.SelectedItems())
        DoScanReplace(context, memory, *row, unit, constSection);
}

}  // namespace

bool DoScanReplace(TContext& context, TScanMemory& memory, TFormRow& row, const std::string& unitFile,
                   bool constSection) {
    if (GetModuleServices(context) == nullptr) return false;
    bool writesCalls = false;
    {
        TRun run(context, memory, row, unitFile, constSection);
        if (!run.Execute()) return false;
        writesCalls = run.WritesCalls();
    }
    UpdateStatusBar(context);
    // Lines that were only marked to be ignored are seen in the source; there is nothing to be said of
    // strings.
    if (writesCalls)
        context.Dialogs().MessageDlg(std::string(constSection ? kConstsReplaced : kReplaced),
                                     TMsgDlgType::mtInformation, {mrOk});
    return true;
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
