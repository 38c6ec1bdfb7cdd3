#include "core/Insertion.h"

#include "base/Errors.h"
#include "base/Utf8.h"
#include "core/Modules.h"

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

void InsertOn(TContext& context, TFormRow& row) {
    const TSettingValues& settings = context.Settings.Get();
    // All or nothing: a component that cannot be named or configured does not stay on the form.
    TRowGuard guard(row);
    const auto scope = BeginCommand(context, "Insert " + settings.DefaultComp);
    const auto component = InsertComponentOnForm(context, row.FormName, settings.DefaultComp);
    if (component == nullptr) return;
    UpdateItem(&row, {component->GetName(), settings.DefaultComp, settings.NumLang});
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

void InsertTmlLang(TContext& context, TFormRow& row) {
    if (!row.HasComponent()) {
        if (!OpenFile(context, row.FileName, true)) throw EmlLangSilent();
        if (const auto lang = GetmlLang(context, row.FormName))
            UpdateItem(&row, {lang->GetName(), lang->GetClassName(), lang->GetNumLang()});
        else
            InsertOn(context, row);
        context.Rows.FormNames.Touch();
    }
    UpdateStatusBar(context);
}

std::shared_ptr<TmlCustomLang> GetmlLang(TContext& context, const std::string& formName) {
    const auto editor = GetFormEditor(context, formName);
    return editor == nullptr ? nullptr : FindCustomLang(*context.Host.Runtime, *editor);
}

std::shared_ptr<IOTAComponent> InsertComponentOnForm(TContext& context, const std::string& formName,
                                                     const std::string& className) {
    const TFormRow* row = context.Rows.FormNames.FindForm(formName);
    if (row == nullptr) return nullptr;
    if (!OpenFile(context, row->FileName, true)) throw EmlLangSilent();
    if (!TestForCorrectForm(context, formName) || !context.Host.Runtime->IsRegistered(className))
        return nullptr;
    auto component = GetFormEditor(context, formName)->CreateComponent(nullptr, className, 0, 0, 0, 0);
    if (component != nullptr && context.Host.Runtime->InheritsFrom(className, std::string(kCustomLang)))
        component->SetName(className.substr(1) + "_" + formName);
    return component;
}

void ConfigureLangComponent(TContext& context, TFormRow* row, const TLangSetUp& setUp) {
    if (row == nullptr) return;
    TRowGuard guard(*row);
    const auto scope = BeginCommand(context, "Languages");
    if (!row->HasComponent() && setUp.InsertIfMissing) InsertTmlLang(context, *row);
    TModuleLease lease(context, row->FileName);
    if (!TestForCorrectForm(context, row->FormName)) {
        // A file that was opened for this is left open, on purpose.
        lease.Keep();
    } else {
        if (const auto component = FindToSetUp(context, *GetFormEditor(context, row->FormName), setUp))
            Configure(context, *row, component, setUp);
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
