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
    return FindComponentOf(editor, [&](IOTAComponent& component) {
        return context.Host.Runtime->InheritsFrom(component.GetComponentType(), setUp.ComponentClass) &&
               (setUp.ComponentName.empty() || SameText(component.GetName(), setUp.ComponentName));
    });
}

bool IsLocalization(IMlRuntime& runtime, const std::string& className) {
    return runtime.InheritsFrom(className, std::string(kCustomLang));
}

/// Opens the row's unit; false where the form is not the row's, which the person has been told.
bool ShowForm(TContext& context, const TFormRow& row, bool show = true) {
    if (!OpenFile(context, row.FileName, show)) throw EmlLangSilent();
    return TestForCorrectForm(context, row);
}

/// As InsertComponentOnForm, on the form of this row.
std::shared_ptr<IOTAComponent> CreateOn(TContext& context, const TFormRow& row, const std::string& className,
                                        std::string name) {
    IMlRuntime& runtime = *context.Host.Runtime;
    if (!ShowForm(context, row) || !runtime.IsRegistered(className)) return nullptr;
    const auto editor = GetFormEditor(context, row.FormName);
    // The name of another component is left to the designer.
    if (name.empty() && IsLocalization(runtime, className))
        name = editor->FreeName(InsertedName(className, row.FormName), className);
    return editor->CreateComponent(nullptr, className, 0, 0, 0, 0, name);
}

void InsertOn(TContext& context, TFormRow& row, const TLangPlan& plan) {
    const TSettingValues& settings = context.Settings.Get();
    // All or nothing: a component that cannot be configured does not stay on the form.
    const auto scope = BeginCommand(context, "Insert " + plan.ClassName);
    if (CreateOn(context, row, plan.ClassName, plan.Name) == nullptr) return;
    UpdateItem(&row, {plan.Name, plan.ClassName, settings.NumLang});
    row.InsertedName = plan.Name;
    TLangSetUp setUp;
    setUp.NumLang = settings.NumLang;
    setUp.LangNamesText = settings.DefaultLangNames;
    ConfigureLangComponent(context, &row, setUp);
    scope->Commit();
}

}  // namespace

std::string InsertedName(const std::string& className, const std::string& formName) {
    return className.substr(1) + (formName.empty() ? "" : "_" + formName);
}

TLangPlan PlanOn(IMlRuntime& runtime, IOTAFormEditor& editor, const std::string& formName,
                 const std::string& className) {
    if (const auto lang = FindCustomLang(runtime, editor))
        return {lang->GetName(), lang, lang->GetClassName()};
    if (!runtime.IsRegistered(className)) return {};
    if (!IsLocalization(runtime, className))
        throw EBadInput("", 0, className + " is no class of localization components",
                        "Choose another default component in the options");
    return {editor.FreeName(InsertedName(className, formName), className), nullptr, className};
}

TLangPlan PlanTmlLang(TContext& context, TFormRow& row, bool show) {
    if (!ShowForm(context, row, show)) throw EmlLangSilent();
    TLangPlan plan = PlanOn(*context.Host.Runtime, *GetFormEditor(context, row.FormName), row.FormName,
                            context.Settings.Get().DefaultComp);
    if (plan.Lang != nullptr && !row.HasComponent())
        UpdateItem(&row, {plan.Name, plan.ClassName, plan.Lang->GetNumLang()});
    return plan;
}

std::shared_ptr<TmlCustomLang> MakePlanned(TContext& context, TFormRow& row, const TLangPlan& plan) {
    if (plan.Lang != nullptr || plan.Name.empty()) return plan.Lang;
    InsertOn(context, row, plan);
    return GetmlLang(context, row.FormName);
}

void InsertTmlLang(TContext& context, TFormRow& row) {
    if (!row.HasComponent()) {
        MakePlanned(context, row, PlanTmlLang(context, row));
        for (TFormRows* list : context.Rows.Both())
            list->Touch();
    }
    UpdateStatusBar(context);
}

std::shared_ptr<TmlCustomLang> GetmlLang(TContext& context, const std::string& formName) {
    const auto editor = GetFormEditor(context, formName);
    return editor == nullptr ? nullptr : FindCustomLang(*context.Host.Runtime, *editor);
}

std::shared_ptr<TmlCustomLang> GetmlLang(TContext& context, const TFormRow& row) {
    const auto editor = GetFormEditorFromModule(GetModuleFromFileName(context, row.FileName));
    return editor == nullptr ? nullptr : FindCustomLang(*context.Host.Runtime, *editor);
}

std::shared_ptr<IOTAComponent> InsertComponentOnForm(TContext& context, const std::string& formName,
                                                     const std::string& className, const std::string& name) {
    const TFormRow* row = context.Rows.FormNames.FindForm(formName);
    return row == nullptr ? nullptr : CreateOn(context, *row, className, name);
}

void ConfigureLangComponent(TContext& context, TFormRow* row, const TLangSetUp& setUp) {
    if (row == nullptr) return;
    const bool inserts = setUp.InsertIfMissing && !row->HasComponent();
    if (inserts && !ShowForm(context, *row)) return;
    const auto scope = BeginCommand(context, "Languages");
    if (inserts) InsertTmlLang(context, *row);
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
        if (component != nullptr) SetUpComponent(context, *row, component, setUp);
        lease.Save();
    }
    scope->Commit();
}

void SetUpLang(TContext& context, TFormRow* row, const TLangSetUp& setUp, TOpenedMeanwhile& opened) {
    while (row != nullptr) {
        const bool wasOpen = IsFileOpen(context, row->FileName);
        ConfigureLangComponent(context, row, setUp);
        // Its own unit is left open on purpose.
        if (!wasOpen) opened.Leave(row->FileName);
        row->Focused = false;
        row = context.Rows.Active().NextSelected(*row);
    }
    context.Rows.Active().Touch();
}

}  // namespace tml
