#include "setup/Setupplanner.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "core/Dispatchers.h"
#include "core/Formfamilies.h"
#include "core/Insertion.h"
#include "platform/Formtexts.h"
#include "setup/Exclusionmatch.h"
#include "setup/Exclusionplan.h"
#include "setup/Furtherproperties.h"
#include "setup/Requiredpackage.h"
#include "setup/Writablefile.h"
#include "source/Identifiers.h"
#include "tables/Languageplaces.h"
#include "tables/Texttransfer.h"
#include "translations/Langlosses.h"

namespace tml {
namespace {

constexpr std::string_view kFormName = "%s";

std::string ReferenceOf(IOTAComponent& component, const char* property) {
    const auto value = component.GetPropValue(property);
    return value && value->Kind == TFormValueKind::Identifier ? value->Text : std::string();
}

bool HasProperty(IMlRuntime& runtime, const std::string& className, std::string_view property) {
    const std::vector<std::string> all = runtime.PropertiesWithout(className, {});
    return TStringList(all).IndexOf(property) >= 0;
}

/// The name that the wish gives the component of a form.
std::string WishedName(const TSetupWishes& wishes, const std::string& formName) {
    if (wishes.ComponentName.empty()) return InsertedName(wishes.ComponentClass, formName);
    std::string name = wishes.ComponentName;
    const std::size_t place = name.find(kFormName);
    if (place != std::string::npos) name.replace(place, kFormName.size(), formName);
    return name;
}

TLangSetUp LanguagesOf(const TSetupWishes& wishes) {
    TLangSetUp setUp;
    setUp.NumLang = wishes.Languages.Count();
    setUp.LangNamesText = wishes.Languages.Text();
    return setUp;
}

/// EBadInput where the languages would cost a component some that it has.
void ExpectNoLoss(ILanguages& languages, const std::string& name, const TSetupWishes& wishes) {
    if (wishes.GivesUpLanguages) return;
    const std::string loss = LossOf(languages, name, LanguagesOf(wishes));
    if (!loss.empty())
        throw EBadInput("", 0, "these languages would give up " + loss,
                        "Name the others as well, or let them be given up (on the command line with --yes)");
}

/// Of a name that stands for all forms; what it is with a form's own name, the form's plan says.
void ExpectName(TContext& context, const TSetupWishes& wishes) {
    const auto project = GetActiveProject(context);
    const bool isCpp = project != nullptr && project->IsCPPProject();
    if (IsIdentifier(WishedName(wishes, "Form1"), isCpp ? kCpp : kPascal)) return;
    throw EBadInput("", 0, Format("\"%s\" is no name for a component", wishes.ComponentName),
                    "Use letters, digits and underscores, a letter first; %s stands for the form's name");
}

}  // namespace

bool HasCommonContainer(TContext& context, const std::string& className) {
    return HasProperty(*context.Host.Runtime, className, "CommonContainer");
}

bool AreTablesUpToDate(TmlCustomLang& lang) {
    auto* const texts = dynamic_cast<IFormTexts*>(&lang);
    return texts != nullptr && texts->IsUpToDate();
}

std::unique_ptr<TModuleLease> OpenForSetup(TContext& context, const TFormRow& row) {
    const bool wasOpen = IsFileOpen(context, row.FileName);
    const TCommandGate::TOwnCall call(context.Gate);
    const auto module = GetModuleServices(context)->OpenModule(row.FileName, false);
    auto lease = std::make_unique<TModuleLease>(context, row.FileName, wasOpen);
    if (module->GetFormEditor() == nullptr)
        throw EBadInput(row.FileName, 0, "the unit has no form file", "Restore it beside the unit");
    if (!SameText(module->GetFormName(), row.FormName))
        throw EBadInput(
            row.FileName, 0,
            "the project names the form " + row.FormName + ", its form file " + module->GetFormName(),
            "Correct the name in the project");
    TestForCorrectForm(context, row);
    return lease;
}

void CheckWishes(TContext& context, const TSetupWishes& wishes) {
    IMlRuntime& runtime = *context.Host.Runtime;
    const std::string& className = wishes.ComponentClass;
    if (!runtime.IsRegistered(className) || !runtime.InheritsFrom(className, "TmlCustomLang"))
        throw EBadInput("", 0, className + " is no class of localization components",
                        "Take one of " + TStringList(runtime.NamesArray()).CommaText());
    if (wishes.Languages.Empty())
        throw EBadInput("", 0, "a form has at least one language", "Name the languages");
    if (!wishes.ContainerForm.empty() && !HasCommonContainer(context, className))
        throw EBadInput("", 0, "a component of the class " + className + " has no common container",
                        "Take TmlLangLinked, or no common container");
    ExpectName(context, wishes);
    for (const std::string& line : wishes.Properties)
        FurtherProperty(line);
}

TSetupPlanner::TSetupPlanner(TContext& context, const TSetupWishes& wishes) : context_(context) {
    plan_.Wishes = wishes;
    CheckWishes(context, wishes);
    for (const std::string& line : wishes.Properties)
        properties_.push_back(FurtherProperty(line));
    for (const TExclusionList list : kExclusionLists)
        for (const std::string& entry : wishes.Exclusions[list])
            entries_.push_back({list, entry});
}

/// The forms that others depend on come first.
std::vector<TFormRow*> TSetupPlanner::AllRows(const std::vector<TFormRow*>& rows) const {
    std::vector<TFormRow*> all;
    for (const std::string& name : {plan_.Wishes.DispatcherForm, plan_.Wishes.ContainerForm}) {
        if (name.empty()) continue;
        const std::vector<TFormRow*> found = context_.Rows.FormNames.FindForms(name);
        if (found.empty())
            throw EBadInput("", 0, "the project has no form " + name,
                            "Choose a form of the project for dispatcher and common container");
        if (all.empty() || all.front() != found.front()) all.push_back(found.front());
    }
    const std::size_t holders = all.size();
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(all), [&](TFormRow* row) {
        return std::find(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(holders), row) ==
               all.begin() + static_cast<std::ptrdiff_t>(holders);
    });
    return AncestorsFirst(all);
}

TSetupPlan TSetupPlanner::Plan(const std::vector<TFormRow*>& rows) {
    const TProgressEnd end(context_.Dialogs());
    const std::vector<TFormRow*> all = AllRows(rows);
    for (const TFormRow* row : all)
        ancestors_.insert(UpperCase(row->Component.DerivesFrom));
    TOpenedMeanwhile opened(context_);
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (!context_.Dialogs().ShowProgress(Format("Reading %s...", all[i]->FormName), static_cast<int>(i),
                                             static_cast<int>(all.size())))
            throw EmlLangSilent();
        PlanForm(*all[i]);
    }
    AddEverywhere();
    ExpectWritable();
    Link();
    ExpectWritable();
    PlanEffect();
    PlanTables();
    PlanPackage();
    held_.clear();
    return std::move(plan_);
}

void TSetupPlanner::PlanForm(TFormRow& row) {
    TFormSetup form;
    form.FormName = row.FormName;
    form.FileName = row.FileName;
    present_.emplace_back();
    try {
        Read(row, form);
    } catch (const EmlLangSilent&) {
        form.Refuse({"", 0, "its unit cannot be opened"});
    } catch (const EBadInput& error) {
        form.Refuse(error);
    }
    planned_.emplace(UpperCase(form.FormName), plan_.Forms.size());
    plan_.Forms.push_back(std::move(form));
}

void TSetupPlanner::Read(TFormRow& row, TFormSetup& form) {
    auto lease = OpenForSetup(context_, row);
    const auto module = GetModuleFromFileName(context_, row.FileName);
    const auto editor = module->GetFormEditor();
    if (ancestors_.count(UpperCase(row.FormName)) > 0) held_.push_back(std::move(lease));
    PlanComponent(row, form, *editor);
    if (SameText(row.FormName, plan_.Wishes.DispatcherForm)) PlanDispatcher(form, *editor);
    PlanFiles(form, *module);
    ExpectWritable(form);
}

void TSetupPlanner::PlanComponent(const TFormRow& row, TFormSetup& form, IOTAFormEditor& editor) {
    const auto lang = FindCustomLang(*context_.Host.Runtime, editor);
    const auto ancestor = planned_.find(UpperCase(row.Component.DerivesFrom));
    if (lang != nullptr) {
        Keep(form, *lang);
    } else if (ancestor != planned_.end() && plan_.Forms[ancestor->second].IsReady()) {
        const TFormSetup& inherited = plan_.Forms[ancestor->second];
        form.Ancestor = inherited.FormName;
        form.Component = inherited.Component;
        form.ClassName = inherited.ClassName;
        form.FillsTables = true;
    } else {
        Insert(form, editor);
    }
    if (form.Ancestor.empty())
        PlanProperties(form, lang.get());
    else if (const auto inherited = planned_.find(UpperCase(form.Ancestor)); inherited != planned_.end())
        present_.back().Exclusions = present_[inherited->second].Exclusions;
    PlanExclusions(form, editor);
}

void TSetupPlanner::Keep(TFormSetup& form, TmlCustomLang& lang) {
    form.Component = lang.GetName();
    form.ClassName = lang.GetClassName();
    form.Languages = lang.GetLangNames();
    form.FillsTables = !AreTablesUpToDate(lang);
    const auto component = lang.GetComponent();
    const auto inherited = lang.GetInherited();
    if (inherited != nullptr) form.Ancestor = inherited->GetComponent()->GetOwner()->GetName();
    const std::string dispatcher = ReferenceOf(*component, "Dispatcher");
    present_.back() = {dispatcher, ReferenceOf(*component, "CommonContainer"), ReadExclusions(lang), {}};
    if (!entries_.empty()) present_.back().Texts = ReadExclusionForm(lang, form.FormName, form.FileName);
    if (!form.Ancestor.empty()) {
        const auto ancestor = planned_.find(UpperCase(form.Ancestor));
        if (ancestor != planned_.end() && plan_.Forms[ancestor->second].SetsLanguages)
            PlanGivenUp(form, lang);
        return;
    }
    if (!SameText(form.ClassName, plan_.Wishes.ComponentClass))
        form.Remarks.Add(Format("its component stays one of the class %s", form.ClassName));
    if (dispatcher.empty() || !plan_.Wishes.DispatcherForm.empty())
        PlanLanguages(form, lang);
    else
        form.Remarks.Add(Format("its languages are those of the dispatcher %s", dispatcher));
}

void TSetupPlanner::PlanLanguages(TFormSetup& form, TmlCustomLang& lang) const {
    if (lang.GetLangNames() == plan_.Wishes.Languages) return;
    ExpectNoLoss(lang, form.FormName, plan_.Wishes);
    form.SetsLanguages = true;
    PlanGivenUp(form, lang);
}

void TSetupPlanner::PlanGivenUp(TFormSetup& form, TmlCustomLang& lang) const {
    const std::vector<int> places = PlacesOf(lang, LanguagesOf(plan_.Wishes));
    const TStringList present = lang.GetLangNames();
    const TStringList lost = LostLanguages(present, places);
    if (!present.Empty() && places.front() != 1) form.GivenUp.Add(present[0] + " as the base language");
    if (lost.Empty()) return;
    TLangTexts texts;
    texts.Tables = lang.GetTables();
    // The texts of a former base language are those of the form.
    for (int i = 1; i < present.Count(); ++i) {
        if (lost.IndexOf(present[i]) < 0) continue;
        const int count = CountTranslations(texts, i + 1);
        form.GivenUp.Add(Format(count == 1 ? "%s with %d text" : "%s with %d texts", present[i], count));
        form.LostTexts += count;
    }
}

void TSetupPlanner::Insert(TFormSetup& form, IOTAFormEditor& editor) const {
    form.Inserts = true;
    form.FillsTables = true;
    form.SetsLanguages = true;
    form.ClassName = plan_.Wishes.ComponentClass;
    form.Component = editor.FreeName(WishedName(plan_.Wishes, form.FormName), form.ClassName);
}

void TSetupPlanner::PlanDispatcher(TFormSetup& form, IOTAFormEditor& editor) const {
    const auto dispatcher = FindOwnDispatcher(*context_.Host.Runtime, editor);
    form.InsertsDispatcher = dispatcher == nullptr;
    form.OwnDispatcher = dispatcher != nullptr ? dispatcher->GetComponent()->GetName()
                                               : editor.FreeName("mlLangDispatcher1", "TmlLangDispatcher");
    form.SetsDispatcher = dispatcher == nullptr || dispatcher->GetLangNames() != plan_.Wishes.Languages;
    if (dispatcher == nullptr || !form.SetsDispatcher) return;
    ExpectNoLoss(*dispatcher, form.OwnDispatcher, plan_.Wishes);
    const std::vector<int> places = PlacesOf(*dispatcher, LanguagesOf(plan_.Wishes));
    for (const std::string& lost : LostLanguages(dispatcher->GetLangNames(), places))
        form.Remarks.Add(
            Format("whatever else is linked to %s gives up its texts in %s", form.OwnDispatcher, lost));
}

void TSetupPlanner::PlanProperties(TFormSetup& form, TmlCustomLang* lang) const {
    for (const TFormProperty& property : properties_) {
        const auto present =
            lang == nullptr ? std::nullopt : lang->GetComponent()->GetPropValue(property.Name);
        const bool isThere = present ? *present == property.Value : IsDefault(property);
        if (!isThere) form.Properties.push_back(property);
    }
}

void TSetupPlanner::PlanExclusions(TFormSetup& form, IOTAFormEditor& editor) {
    if (entries_.empty()) return;
    const TExclusionSubject subject(*editor.GetRootComponent());
    for (TEntry& entry : entries_) {
        const TExclusionReach reach = subject.Try(entry.List, entry.Text);
        entry.MeansSomething = entry.MeansSomething || reach != TExclusionReach::Nothing;
        entry.IsEverywhere = entry.IsEverywhere || reach == TExclusionReach::Everywhere;
        if (reach == TExclusionReach::OfForm &&
            AddExclusion(present_.back().Exclusions, entry.List, entry.Text))
            AddExclusion(form.Exclusions, entry.List, entry.Text);
    }
}

/// What goes by classes, properties and texts is for every form that has a component of its own.
void TSetupPlanner::AddEverywhere() {
    for (const TEntry& entry : entries_) {
        if (!entry.MeansSomething) {
            plan_.Meaningless.Add(entry.Text);
            plan_.Remarks.Add(
                Format("the exclusion %s means nothing on these forms and is not entered", entry.Text));
        }
        if (!entry.IsEverywhere) continue;
        for (std::size_t i = 0; i < plan_.Forms.size(); ++i) {
            TFormSetup& form = plan_.Forms[i];
            if (form.IsReady() && form.Ancestor.empty() &&
                AddExclusion(present_[i].Exclusions, entry.List, entry.Text))
                AddExclusion(form.Exclusions, entry.List, entry.Text);
        }
    }
}

/// A header declares what stands in a C++ unit's form.
void TSetupPlanner::PlanFiles(TFormSetup& form, IOTAModule& module) const {
    if (form.Inserts || form.InsertsDispatcher)
        form.Declaration = module.GetSourceEditor(module.GetSourceEditorCount() - 1)->GetFileName();
    form.FormFile = module.GetFormEditor()->GetFileName();
}

/// A form that changes only with others is known to do so late.
void TSetupPlanner::ExpectWritable() {
    for (TFormSetup& form : plan_.Forms) {
        try {
            ExpectWritable(form);
        } catch (const EBadInput& error) {
            form.Refuse(error);
        }
    }
}

void TSetupPlanner::ExpectWritable(const TFormSetup& form) const {
    for (const std::string& file : plan_.FilesOf(form))
        ExpectWritableFile(context_, file);
}

/// Languages and what an ancestor holds make other tables.
void TSetupPlanner::PlanTables() {
    for (TFormSetup& form : plan_.Forms) {
        const auto ancestor = planned_.find(UpperCase(form.Ancestor));
        const bool isAncestorOther = ancestor != planned_.end() && plan_.Forms[ancestor->second].FillsTables;
        form.FillsTables = form.FillsTables || isAncestorOther || form.SetsLanguages || form.SetsDispatcher ||
                           !form.Dispatcher.empty();
    }
}

/// What an ancestor excludes, its heirs do.
void TSetupPlanner::PlanEffect() {
    for (std::size_t i = 0; i < plan_.Forms.size(); ++i) {
        if (!present_[i].Texts) continue;
        TFormSetup& form = plan_.Forms[i];
        TExclusionLists lists = present_[i].Exclusions;
        for (auto ancestor = planned_.find(UpperCase(form.Ancestor)); ancestor != planned_.end();
             ancestor = planned_.find(UpperCase(plan_.Forms[ancestor->second].Ancestor)))
            for (const TExclusionList list : kExclusionLists)
                for (const std::string& entry : plan_.Forms[ancestor->second].Exclusions[list])
                    AddExclusion(lists, list, entry);
        const TExclusionEffect effect = EffectOf(*present_[i].Texts, present_[i].Texts->Lists, lists);
        form.Dropped = effect.Dropped;
        form.FillsTables = form.FillsTables || effect.Leave + effect.ComeBack > 0;
        present_[i].Texts.reset();
    }
}

/// A program that does not build would be a puzzle.
void TSetupPlanner::PlanPackage() {
    const std::string file = PackageProject(context_);
    if (plan_.Wishes.AddsPackage && file.empty())
        throw EBadInput("", 0, "only a project in .lpi requires packages", "Leave the package out");
    if (file.empty() || RequiresPackage(context_, file)) return;
    if (plan_.Wishes.AddsPackage)
        plan_.PackageProject = file;
    else
        plan_.Remarks.Add(
            Format("%s does not require the package %s yet", FileNameOf(file), kRuntimePackage));
}

void TSetupPlanner::Link() {
    const auto link = [&](const std::string& formName, bool isDispatcher) {
        const auto found = planned_.find(UpperCase(formName));
        if (formName.empty() || found == planned_.end()) return;
        const TFormSetup holder = plan_.Forms[found->second];
        LinkTo(holder, isDispatcher ? holder.OwnDispatcher : holder.Component, isDispatcher);
    };
    link(plan_.Wishes.DispatcherForm, true);
    link(plan_.Wishes.ContainerForm, false);
}

void TSetupPlanner::LinkTo(const TFormSetup& holder, const std::string& component, bool isDispatcher) {
    for (std::size_t i = 0; i < plan_.Forms.size(); ++i) {
        TFormSetup& form = plan_.Forms[i];
        const bool isHolder = form.FileName == holder.FileName;
        if (!form.IsReady() || !form.Ancestor.empty() || (isHolder && !isDispatcher)) continue;
        if (!holder.IsReady()) {
            form.Refuse(
                {"", 0, "the form " + holder.FormName + ", which it is to be linked to, is not ready"});
            continue;
        }
        if (!isDispatcher && !HasCommonContainer(context_, form.ClassName)) {
            form.Remarks.Add(Format("a component of the class %s has no common container", form.ClassName));
            continue;
        }
        const std::string reference = isHolder ? component : holder.FormName + "." + component;
        const std::string& present = isDispatcher ? present_[i].Dispatcher : present_[i].Container;
        const bool isLinked = SameText(present, reference);
        if (!isLinked) (isDispatcher ? form.Dispatcher : form.Container) = reference;
        if (isLinked && isDispatcher && holder.SetsDispatcher) form.FillsTables = true;
    }
}

TSetupPlan PlanSetup(TContext& context, const std::vector<TFormRow*>& rows, const TSetupWishes& wishes) {
    return TSetupPlanner(context, wishes).Plan(rows);
}

}  // namespace tml
