#include "core/Insertion.h"

#include "base/Errors.h"
#include "base/Utf8.h"
#include "core/Modules.h"
#include "tables/Languageplaces.h"
#include "tables/Languages.h"

namespace tml {
namespace {

constexpr std::string_view kCustomLang = "TmlCustomLang";

/// The first component of the form that is of the class, and has the name where one is given.
std::shared_ptr<IOTAComponent> FindToSetUp(TContext& context, IOTAFormEditor& editor,
                                           const TLangSetUp& setUp) {
    const auto root = editor.GetRootComponent();
    for (int i = 0; i < root->GetComponentCount(); ++i) {
        auto component = root->GetComponent(i);
        if (!context.Host.Runtime->InheritsFrom(component->GetComponentType(), setUp.ComponentClass))
            continue;
        if (setUp.ComponentName.empty() || SameText(component->GetName(), setUp.ComponentName))
            return component;
    }
    return nullptr;
}

/// The texts of every table follow their languages; those of new languages begin as the base language's.
void MoveTexts(TmlCustomLang& lang, const TLangSetUp& setUp) {
    const std::vector<int> places = PlacesOf(lang, setUp);
    if (places.empty()) return;
    for (const TTableKind& kind : kTableKinds) {
        TTable table = lang.GetTable(kind.Type);
        table.MoveLanguages(places);
        lang.SetTable(table);
    }
}

void SetNames(ILanguages& languages, const TLangSetUp& setUp) {
    if (setUp.LangNamesText.empty()) return;
    TStringList names = SplitLangNames(setUp.LangNamesText);
    while (names.Count() > setUp.NumLang)
        names.Delete(names.Count() - 1);
    languages.SetLangNames(names);
}

/// Sets the language to the name at the index (1-based) that was the active one; to the first where the
/// component has no such language any more, nothing where it has no names.
void SetActiveName(ILanguages& languages, int index, int count) {
    const TStringList names = languages.GetLangNames();
    const int place = index <= count && index <= names.Count() ? index : 1;
    if (!names.Empty()) languages.SetLanguage(names[place - 1]);
}

void Configure(TContext& context, TFormRow& row, const std::shared_ptr<IOTAComponent>& component,
               const TLangSetUp& setUp) {
    if (const auto lang = context.Host.Runtime->AsCustomLang(component)) {
        const int active = lang->GetActiveLanguage();
        MoveTexts(*lang, setUp);
        SetNames(*lang, setUp);
        lang->SetNumLang(setUp.NumLang);
        row.Component.NumLang = setUp.NumLang;
        SetActiveName(*lang, active, setUp.NumLang);
    } else if (const auto dispatcher = context.Host.Runtime->AsDispatcher(component)) {
        const int active = dispatcher->GetActiveLanguage();
        SetNames(*dispatcher, setUp);
        dispatcher->SetNumOfLanguages(setUp.NumLang);
        SetActiveName(*dispatcher, active, setUp.NumLang);
    }
    MarkModifiedForm(context, row.FormName);
}

/// "mlLang_Form1" for a TmlLang, freed; "" leaves the name of another component to the designer.
std::string NameFor(TContext& context, IOTAFormEditor& editor, const std::string& formName,
                    const std::string& className) {
    if (!context.Host.Runtime->InheritsFrom(className, std::string(kCustomLang))) return {};
    return editor.FreeName(className.substr(1) + "_" + formName, className);
}

void InsertOn(TContext& context, TFormRow& row, const std::string& name) {
    const TSettingValues& settings = context.Settings.Get();
    // All or nothing: a component that cannot be configured does not stay on the form.
    TRowGuard guard(row);
    const auto scope = BeginCommand(context, "Insert " + settings.DefaultComp);
    if (InsertComponentOnForm(context, row.FormName, settings.DefaultComp, name) == nullptr) return;
    UpdateItem(&row, {name, settings.DefaultComp, settings.NumLang});
    // The column shows the class, not the new component's name, until the list is rebuilt: on purpose.
    row.ShowsClass = true;
    TLangSetUp setUp;
    setUp.NumLang = settings.NumLang;
    setUp.LangNamesText = settings.DefaultLangNames;
    ConfigureLangComponent(context, &row, setUp);
    scope->Commit();
    guard.Keep();
}

}  // namespace

TLangPlan PlanTmlLang(TContext& context, TFormRow& row) {
    if (!OpenFile(context, row.FileName, true)) throw EmlLangSilent();
    if (!TestForCorrectForm(context, row)) throw EmlLangSilent();
    const std::string& className = context.Settings.Get().DefaultComp;
    const auto editor = GetFormEditor(context, row.FormName);
    if (const auto lang = FindCustomLang(*context.Host.Runtime, *editor)) {
        if (!row.HasComponent())
            UpdateItem(&row, {lang->GetName(), lang->GetClassName(), lang->GetNumLang()});
        return {lang->GetName(), lang};
    }
    if (!context.Host.Runtime->IsRegistered(className)) return {};
    return {NameFor(context, *editor, row.FormName, className), nullptr};
}

std::shared_ptr<TmlCustomLang> MakePlanned(TContext& context, TFormRow& row, const TLangPlan& plan) {
    if (plan.Lang != nullptr || plan.Name.empty()) return plan.Lang;
    InsertOn(context, row, plan.Name);
    return GetmlLang(context, row.FormName);
}

void InsertTmlLang(TContext& context, TFormRow& row) {
    if (!row.HasComponent()) {
        MakePlanned(context, row, PlanTmlLang(context, row));
        context.Rows.FormNames.Touch();
    }
    UpdateStatusBar(context);
}

std::shared_ptr<TmlCustomLang> GetmlLang(TContext& context, const std::string& formName) {
    const auto editor = GetFormEditor(context, formName);
    return editor == nullptr ? nullptr : FindCustomLang(*context.Host.Runtime, *editor);
}

std::shared_ptr<IOTAComponent> InsertComponentOnForm(TContext& context, const std::string& formName,
                                                     const std::string& className, const std::string& name) {
    const TFormRow* row = context.Rows.FormNames.FindForm(formName);
    if (row == nullptr) return nullptr;
    if (!OpenFile(context, row->FileName, true)) throw EmlLangSilent();
    if (!TestForCorrectForm(context, *row) || !context.Host.Runtime->IsRegistered(className)) return nullptr;
    const auto editor = GetFormEditor(context, formName);
    return editor->CreateComponent(nullptr, className, 0, 0, 0, 0,
                                   name.empty() ? NameFor(context, *editor, formName, className) : name);
}

std::vector<int> PlacesOf(ILanguages& languages, const TLangSetUp& setUp) {
    if (setUp.LangNamesText.empty()) return {};
    const TStringList& wanted =
        setUp.FormerNames.Empty() ? SplitLangNames(setUp.LangNamesText) : setUp.FormerNames;
    const TStringList present = languages.GetLangNames();
    return PlacesOfLanguages(present, FitLangNames(wanted, setUp.NumLang));
}

void ConfigureLangComponent(TContext& context, TFormRow* row, const TLangSetUp& setUp) {
    if (row == nullptr) return;
    TRowGuard guard(*row);
    const auto scope = BeginCommand(context, "Languages");
    if (!row->HasComponent() && setUp.InsertIfMissing) InsertTmlLang(context, *row);
    TModuleLease lease(context, row->FileName);
    if (!TestForCorrectForm(context, *row)) {
        // A file that was opened for this is left open, on purpose.
        lease.Keep();
    } else {
        const auto editor = GetFormEditor(context, row->FormName);
        auto component = FindToSetUp(context, *editor, setUp);
        // What a closed form seemed to have was its frame's.
        if (component == nullptr && setUp.InsertIfMissing && !row->HasComponent()) {
            InsertTmlLang(context, *row);
            component = FindToSetUp(context, *editor, setUp);
        }
        if (component != nullptr) Configure(context, *row, component, setUp);
        lease.Save();
    }
    scope->Commit();
    guard.Keep();
}

void SetUpLang(TContext& context, TFormRow* row, const TLangSetUp& setUp) {
    while (row != nullptr) {
        ConfigureLangComponent(context, row, setUp);
        row->Focused = false;
        row = context.Rows.Active().NextSelected(*row);
    }
    context.Rows.Active().Touch();
}

}  // namespace tml
