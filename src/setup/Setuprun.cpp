#include "setup/Setuprun.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <unordered_set>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "platform/Projectoptions.h"
#include "setup/Furtherproperties.h"
#include "setup/Requiredpackage.h"
#include "setup/Setupplanner.h"

namespace tml {
namespace {

constexpr const char* kTitle = "Set up forms for translation";

TLangSetUp SetUpOf(const TSetupWishes& wishes) {
    TLangSetUp setUp;
    setUp.NumLang = wishes.Languages.Count();
    setUp.LangNamesText = wishes.Languages.Text();
    return setUp;
}

void SetReference(IOTAComponent& component, const char* property, const std::string& reference) {
    if (!reference.empty()) component.SetPropValue(property, TFormValue::Identifier(reference));
}

/// The run over the forms of a plan.
class TSetupRun {
  public:
    TSetupRun(TContext& context, TScanMemory& memory, const TSetupPlan& plan)
        : context_(context), memory_(memory), plan_(plan), opened_(context) {
        for (const TFormSetup& form : plan.Forms)
            ancestors_.insert(UpperCase(form.Ancestor));
    }

    /// What fails is noted with its form.
    void Do(const TFormSetup& form) {
        TFormOutcome outcome{form.FormName, form.FileName, form.Problem, {}, {}};
        try {
            if (plan_.Changes(form)) SetUp(form, outcome);
        } catch (const EmlLangSilent&) {
            outcome.Problem = "its unit cannot be opened";
        } catch (const EBadInput& error) {
            outcome.Problem = error.what();
        }
        Outcome.Forms.push_back(std::move(outcome));
    }
    /// The package, and what was changed beside the forms' own files; to be called inside the step.
    void Finish() {
        if (!plan_.PackageProject.empty() && Outcome.CountDone() > 0 &&
            RequirePackage(context_, plan_.PackageProject))
            Outcome.PackageProject = plan_.PackageProject;
        opened_.Save();
        held_.clear();
    }

    TSetupOutcome Outcome;
    /// Is told the rows of a form whose strings move, with what was decided of them.
    std::function<void(const TFoundRows& rows)> OnRows;

  private:
    void SetUp(const TFormSetup& form, TFormOutcome& outcome);
    std::shared_ptr<TmlCustomLang> ComponentOf(const TFormSetup& form, IOTAFormEditor& editor);
    void SetDispatcher(const TFormSetup& form, IOTAFormEditor& editor);
    void Configure(const TFormSetup& form, TFormRow& row, TmlCustomLang& lang);
    /// How many are calls now.
    int MoveStrings(const TFormSetup& form, TFormRow& row);

    TContext& context_;
    TScanMemory& memory_;
    const TSetupPlan& plan_;
    TOpenedMeanwhile opened_;
    std::unordered_set<std::string> ancestors_;        ///< whose component other forms inherit; upper-cased
    std::vector<std::unique_ptr<TModuleLease>> held_;  ///< ancestors, read once for all that inherit
};

/// All of it or nothing.
void TSetupRun::SetUp(const TFormSetup& form, TFormOutcome& outcome) {
    TFormRow* row = context_.Rows.FormNames.FindFile(form.FileName);
    if (row == nullptr) throw EBadInput(form.FileName, 0, "the form is not listed any more");
    const auto scope = BeginCommand(context_, kTitle);
    auto lease = OpenForSetup(context_, *row);
    const auto editor = GetFormEditorFromModule(GetModuleFromFileName(context_, form.FileName));
    if (!form.OwnDispatcher.empty()) SetDispatcher(form, *editor);
    const auto lang = ComponentOf(form, *editor);
    Configure(form, *row, *lang);
    TFormSetup done = form;
    done.FillsTables = form.Inserts || !AreTablesUpToDate(*lang);
    if (done.FillsTables) outcome.Notes = lang->BuildList();
    UpdateItem(row, {lang->GetName(), lang->GetClassName(), lang->GetNumLang(), row->FormName,
                     row->Component.Ancestor, row->Component.DerivesFrom});
    const int moved = plan_.Wishes.MovesStrings ? MoveStrings(form, *row) : 0;
    TStringList steps = plan_.DoneTo(std::move(done), moved);
    if (!steps.Empty()) MarkModifiedForm(context_, form.FormName);
    lease->Save();
    scope->Commit();
    outcome.Done = std::move(steps);
    if (ancestors_.count(UpperCase(form.FormName)) > 0) held_.push_back(std::move(lease));
}

std::shared_ptr<TmlCustomLang> TSetupRun::ComponentOf(const TFormSetup& form, IOTAFormEditor& editor) {
    IMlRuntime& runtime = *context_.Host.Runtime;
    if (form.Inserts) {
        const auto component = editor.CreateComponent(nullptr, form.ClassName, 0, 0, 0, 0, form.Component);
        if (auto lang = runtime.AsCustomLang(component)) return lang;
    } else if (auto lang = FindCustomLang(runtime, editor)) {
        return lang;
    }
    throw EBadInput(form.FileName, 0, "the form has no component " + form.Component,
                    "Check that its package is loaded and that its ancestor is set up");
}

/// Those who are linked to it already follow.
void TSetupRun::SetDispatcher(const TFormSetup& form, IOTAFormEditor& editor) {
    const auto component = form.InsertsDispatcher ? editor.CreateComponent(nullptr, "TmlLangDispatcher", 0, 0,
                                                                           0, 0, form.OwnDispatcher)
                                                  : editor.FindComponent(form.OwnDispatcher);
    const auto dispatcher = context_.Host.Runtime->AsDispatcher(component);
    if (dispatcher == nullptr)
        throw EBadInput(form.FileName, 0, "the form has no dispatcher " + form.OwnDispatcher);
    if (form.SetsDispatcher) SetUpDispatcher(context_, *dispatcher, SetUpOf(plan_.Wishes));
}

void TSetupRun::Configure(const TFormSetup& form, TFormRow& row, TmlCustomLang& lang) {
    const auto component = lang.GetComponent();
    if (form.SetsLanguages) SetUpComponent(context_, row, component, SetUpOf(plan_.Wishes));
    SetReference(*component, "Dispatcher", form.Dispatcher);
    SetReference(*component, "CommonContainer", form.Container);
    for (const TFormProperty& property : form.Properties) {
        if (IsDefault(property))
            component->RemoveProp(property.Name);
        else
            component->SetPropValue(property.Name, property.Value);
    }
    TExclusionLists lists = ReadExclusions(lang);
    for (const TExclusionList list : kExclusionLists)
        for (const std::string& entry : form.Exclusions[list])
            AddExclusion(lists, list, entry);
    WriteExclusions(lang, lists);
}

int TSetupRun::MoveStrings(const TFormSetup& form, TFormRow& row) {
    return ReplaceReviewed(context_, memory_, row, [&](TFoundRows& rows) {
        if (form.Strings) DecideRows(rows, *form.Strings, form.FileName);
        if (OnRows) OnRows(rows);
        return true;
    });
}

/// What is known of the rows comes back with them.
class TRowsKept {
  public:
    explicit TRowsKept(TContext& context) : context_(context) {
        for (const auto& row : context.Rows.FormNames.Items())
            components_.push_back(row->Component);
    }
    ~TRowsKept() {
        const auto& rows = context_.Rows.FormNames.Items();
        for (std::size_t i = 0; i < std::min(rows.size(), components_.size()); ++i)
            rows[i]->Component = components_[i];
    }
    TRowsKept(const TRowsKept&) = delete;
    TRowsKept& operator=(const TRowsKept&) = delete;

  private:
    TContext& context_;
    std::vector<TFormAnalysis> components_;
};

/// The form and those that it inherits the component from.
std::vector<const TFormSetup*> WithAncestors(const TSetupPlan& plan, std::size_t place) {
    std::vector<const TFormSetup*> line{&plan.Forms.at(place)};
    for (std::size_t i = place; i-- > 0;)
        if (SameText(plan.Forms[i].FormName, line.back()->Ancestor)) line.push_back(&plan.Forms[i]);
    std::reverse(line.begin(), line.end());
    return line;
}

/// The forms that inherit from others of the plan, and these; upper-cased.
std::unordered_set<std::string> FamiliesIn(const TSetupPlan& plan) {
    std::unordered_set<std::string> all, families;
    for (const TFormSetup& form : plan.Forms)
        all.insert(UpperCase(form.FormName));
    for (const TFormSetup& form : plan.Forms)
        if (all.contains(UpperCase(form.Ancestor)))
            families.insert({UpperCase(form.FormName), UpperCase(form.Ancestor)});
    return families;
}

std::string TextOf(const TFormOutcome& form) {
    std::string text = Format("\r\n%s (%s)\r\n", form.FormName, FileNameOf(form.FileName));
    if (!form.IsDone()) return text + Format("    is as it was: %s\r\n", form.Problem);
    for (const std::string& done : form.Done)
        text += Format("    %s\r\n", done);
    for (const std::string& note : form.Notes)
        text += Format("    note: %s\r\n", note);
    return text;
}

}  // namespace

int TSetupOutcome::CountDone() const {
    return static_cast<int>(
        std::count_if(Forms.begin(), Forms.end(), [](const TFormOutcome& form) { return form.IsDone(); }));
}

std::string TSetupOutcome::PackageText() const {
    return Format("%s requires the package %s now", FileNameOf(PackageProject), kRuntimePackage);
}

bool TSetupOutcome::HasChanged() const {
    return !PackageProject.empty() || std::any_of(Forms.begin(), Forms.end(), [](const TFormOutcome& form) {
        return !form.Done.Empty();
    });
}

std::string TSetupOutcome::Report() const {
    const int all = static_cast<int>(Forms.size()) + Untouched;
    std::string text = Format("Forms that are set up: %d of %d\r\n", CountDone(), all);
    const auto idle =
        std::count_if(Forms.begin(), Forms.end(), [](const TFormOutcome& form) { return form.IsIdle(); });
    if (idle > 0) text += Format("Forms with nothing to do: %d\r\n", static_cast<int>(idle));
    if (Stopped) text += Format("Stopped; forms whose turn did not come: %d\r\n", Untouched);
    if (!PackageProject.empty()) text += PackageText() + "\r\n";
    for (const std::string& remark : Remarks)
        text += Format("Note: %s\r\n", remark);
    // What needs the person comes first.
    for (const bool done : {false, true})
        for (const TFormOutcome& form : Forms)
            if (form.IsDone() == done && !form.IsIdle()) text += TextOf(form);
    return text;
}

TSetupOutcome RunSetup(TContext& context, TScanMemory& memory, const TSetupPlan& plan) {
    const TProgressEnd end(context.Dialogs());
    TSetupRun run(context, memory, plan);
    const auto scope = BeginCommand(context, kTitle);
    const int count = static_cast<int>(plan.Forms.size());
    for (int i = 0; i < count && !run.Outcome.Stopped; ++i) {
        const TFormSetup& form = plan.Forms[static_cast<std::size_t>(i)];
        run.Outcome.Stopped =
            !context.Dialogs().ShowProgress(Format("Setting up %s...", form.FormName), i, count);
        if (run.Outcome.Stopped)
            run.Outcome.Untouched = count - i;
        else
            run.Do(form);
    }
    run.Finish();
    // A disk that confirms each of a thousand files takes its time.
    context.Dialogs().ShowProgress("Writing the files...", count, count);
    scope->Commit();
    run.Outcome.Remarks = plan.Remarks;
    for (TFormRows* list : context.Rows.Both())
        list->Touch();
    UpdateStatusBar(context);
    return std::move(run.Outcome);
}

std::string DiffOfSetup(TContext& context, TScanMemory& memory, const TSetupPlan& plan,
                        std::optional<std::size_t> form) {
    const TProgressEnd end(context.Dialogs());
    const TRowsKept rows(context);
    TSetupRun run(context, memory, plan);
    const auto scope = BeginCommand(context, kTitle);
    std::vector<const TFormSetup*> forms;
    for (std::size_t i = 0; !form && i < plan.Forms.size(); ++i)
        forms.push_back(&plan.Forms[i]);
    if (form) forms = WithAncestors(plan, *form);
    int done = 0;
    for (const TFormSetup* one : forms) {
        if (!context.Dialogs().ShowProgress(Format("Setting up %s...", one->FormName), done++,
                                            static_cast<int>(forms.size())))
            throw EmlLangSilent();
        run.Do(*one);
        if (form && !run.Outcome.Forms.back().IsDone()) return run.Outcome.Forms.back().Problem;
    }
    run.Finish();
    return scope->Patch();
}

void FindInFamilies(TContext& context, TScanMemory& memory, TSetupPlan& plan) {
    const std::unordered_set<std::string> families = FamiliesIn(plan);
    if (families.empty()) return;
    const TProgressEnd end(context.Dialogs());
    const TRowsKept rows(context);
    TSetupRun run(context, memory, plan);
    std::optional<TSetupStrings> found;
    run.OnRows = [&found](const TFoundRows& foundRows) { found = StringsOf(foundRows); };
    // Without Commit it takes everything back.
    const auto scope = BeginCommand(context, kTitle);
    int done = 0;
    for (TFormSetup& form : plan.Forms) {
        if (!families.contains(UpperCase(form.FormName))) continue;
        if (!context.Dialogs().ShowProgress(Format("Scanning %s...", form.FormName), done++,
                                            static_cast<int>(families.size())))
            throw EmlLangSilent();
        found = std::nullopt;
        run.Do(form);
        if (found && run.Outcome.Forms.back().IsDone()) form.Strings = std::move(found);
    }
}

void StoreLinks(TContext& context, const TSetupWishes& wishes) {
    const auto settings = context.Host.Runtime->mlLangProjectSettings;
    if (settings == nullptr) return;
    bool changed = false;
    const auto store = [&](const char* option, const std::string& form) {
        if (form.empty() || settings->GetOptionValue(option) == TOptionValue(form)) return;
        settings->SetOptionValue(option, form);
        changed = true;
    };
    store("DispatcherForm", wishes.DispatcherForm);
    store("CommonContainerForm", wishes.ContainerForm);
    if (changed) settings->SaveFile();
}

}  // namespace tml
