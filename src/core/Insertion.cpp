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

void Configure(TContext& context, TListItem& item, const std::shared_ptr<IOTAComponent>& component,
               const TLangSetUp& setUp) {
    if (const auto lang = context.Host.Runtime->AsCustomLang(component)) {
        const int active = lang->GetActiveLanguage();
        SetNames(*lang, setUp);
        lang->SetNumLang(setUp.NumLang);
        item.SubItems[fcLanguages] = std::to_string(setUp.NumLang);
        SetActiveName(*lang, active, setUp.NumLang);
        item.StateIndex = 1;
    } else if (const auto dispatcher = context.Host.Runtime->AsDispatcher(component)) {
        const int active = dispatcher->GetActiveLanguage();
        SetNames(*dispatcher, setUp);
        dispatcher->SetNumOfLanguages(setUp.NumLang);
        SetActiveName(*dispatcher, active, setUp.NumLang);
    }
    MarkModifiedForm(context, item.Caption);
}

void InsertOn(TContext& context, TListItem& item) {
    const TSettingValues& settings = context.Settings.Get();
    // All or nothing: a component that cannot be named or configured does not stay on the form.
    TRowGuard row(item);
    const auto scope = BeginCommand(context, "Insert " + settings.DefaultComp);
    if (InsertComponentOnForm(context, item.Caption, settings.DefaultComp) == nullptr) return;
    // The column shows the class, not the new component's name, until the list is rebuilt: on purpose.
    UpdateItem(&item, settings.DefaultComp, settings.NumLang, settings.DefaultComp);
    TLangSetUp setUp;
    setUp.NumLang = settings.NumLang;
    setUp.LangNamesText = settings.DefaultLangNames;
    ConfigureLangComponent(context, &item, setUp);
    scope->Commit();
    row.Keep();
}

}  // namespace

void InsertTmlLang(TContext& context, TListItem& item) {
    if (item.SubItems[fcLanguages] == "0") {
        if (!OpenFile(context, item.SubItems[fcFileName], true)) throw EmlLangSilent();
        if (const auto lang = GetmlLang(context, item.Caption))
            UpdateItem(&item, lang->GetName(), lang->GetNumLang(), lang->GetClassName());
        else
            InsertOn(context, item);
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
    const TListItem* row = FindRowOfForm(context.Rows.FormNames, formName);
    if (row == nullptr) return nullptr;
    if (!OpenFile(context, row->SubItems[fcFileName], true)) throw EmlLangSilent();
    if (!TestForCorrectForm(context, formName) || !context.Host.Runtime->IsRegistered(className))
        return nullptr;
    auto component = GetFormEditor(context, formName)->CreateComponent(nullptr, className, 0, 0, 0, 0);
    if (component != nullptr && context.Host.Runtime->InheritsFrom(className, std::string(kCustomLang)))
        component->SetName(className.substr(1) + "_" + formName);
    return component;
}

void ConfigureLangComponent(TContext& context, TListItem* item, const TLangSetUp& setUp) {
    if (item == nullptr) return;
    TRowGuard row(*item);
    const auto scope = BeginCommand(context, "Languages");
    if (item->SubItems[fcLanguages] == "0" && setUp.InsertIfMissing) InsertTmlLang(context, *item);
    TModuleLease lease(context, item->SubItems[fcFileName]);
    if (!TestForCorrectForm(context, item->Caption)) {
        // A file that was opened for this is left open, on purpose.
        lease.Keep();
    } else {
        if (const auto component = FindToSetUp(context, *GetFormEditor(context, item->Caption), setUp))
            Configure(context, *item, component, setUp);
        lease.Save();
    }
    scope->Commit();
    row.Keep();
}

void SetUpLang(TContext& context, TListItem* item, const TLangSetUp& setUp) {
    while (item != nullptr) {
        ConfigureLangComponent(context, item, setUp);
        item->Focused = false;
        item = context.Rows.Active().NextSelected(*item);
    }
    context.Rows.Active().Touch();
}

}  // namespace tml
