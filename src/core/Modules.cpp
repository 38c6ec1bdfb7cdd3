#include "core/Modules.h"

#include "base/Errors.h"

namespace tml {
namespace {

constexpr const char* kNoFormModule =
    "Unable to obtain the interface of form module! Please check your project source.";

/// The form's own go first: its unit may have calls of them already.
std::shared_ptr<IOTAComponent> FirstOf(IOTAComponent& root, const TComponentTest& fits) {
    const int count = root.GetComponentCount();
    for (int i = 0; i < count; ++i)
        if (auto component = root.GetComponent(i); fits(*component)) return component;
    const auto ancestor = root.GetOrigin() == TComponentOrigin::coInherited ? root.GetAncestor() : nullptr;
    return ancestor == nullptr ? nullptr : FirstOf(*ancestor, fits);
}

}  // namespace

IOTAModuleServices* GetModuleServices(TContext& context) {
    return context.Host.Services == nullptr ? nullptr : context.Host.Services->GetModuleServices();
}

std::unique_ptr<ICommandScope> BeginCommand(TContext& context, const std::string& title) {
    IOTAModuleServices* services = GetModuleServices(context);
    if (services == nullptr) throw EmlLangSilent();
    return services->BeginCommand(title);
}

std::shared_ptr<IOTAProject> GetActiveProject(TContext& context) {
    IOTAModuleServices* services = GetModuleServices(context);
    return services == nullptr ? nullptr : services->GetActiveProject();
}

std::shared_ptr<IOTAProjectGroup> GetActiveProjectGroup(TContext& context) {
    IOTAModuleServices* services = GetModuleServices(context);
    return services == nullptr ? nullptr : services->GetMainProjectGroup();
}

std::shared_ptr<IOTASourceEditor> GetCurrentSourceEditor(TContext& context) {
    IOTAModuleServices* services = GetModuleServices(context);
    return services == nullptr ? nullptr : services->GetCurrentSourceEditor();
}

std::shared_ptr<IOTAModule> GetModuleFromFileName(TContext& context, const std::string& fileName) {
    IOTAModuleServices* services = GetModuleServices(context);
    return services == nullptr ? nullptr : services->FindModule(fileName);
}

std::shared_ptr<IOTAFormEditor> GetFormEditorFromModule(const std::shared_ptr<IOTAModule>& module) {
    return module == nullptr ? nullptr : module->GetFormEditor();
}

std::shared_ptr<IOTAFormEditor> GetFormEditor(TContext& context, const std::string& formName) {
    IOTAModuleServices* services = GetModuleServices(context);
    return services == nullptr ? nullptr : GetFormEditorFromModule(services->FindFormModule(formName));
}

bool IsFileOpen(TContext& context, const std::string& fileName) {
    return GetModuleFromFileName(context, fileName) != nullptr;
}

bool OpenFile(TContext& context, const std::string& fileName, bool show) {
    IOTAModuleServices* services = GetModuleServices(context);
    if (services == nullptr) return false;
    const TCommandGate::TOwnCall call(context.Gate);
    try {
        return services->OpenModule(fileName, show) != nullptr;
    } catch (const EBadInput&) {
        // No message: the caller ends its command, or leaves the row as it is.
        return false;
    }
}

void SaveFile(TContext& context, const std::string& fileName) {
    const TCommandGate::TOwnCall call(context.Gate);
    if (const auto module = GetModuleFromFileName(context, fileName)) module->Save();
}

void CloseFile(TContext& context, const std::string& fileName) {
    const TCommandGate::TOwnCall call(context.Gate);
    if (const auto module = GetModuleFromFileName(context, fileName)) module->Close();
}

void MarkModifiedForm(TContext& context, const std::string& formName) {
    if (const auto editor = GetFormEditor(context, formName)) editor->MarkModified();
}

bool TestForCorrectForm(TContext& context, const TFormRow& row) {
    IOTAModuleServices* services = GetModuleServices(context);
    if (services == nullptr) return false;
    // A unit without a form stands in the list of external files.
    const auto module = row.FormName.empty() ? nullptr : services->FindFormModule(row.FormName);
    if (module == nullptr) {
        context.Dialogs().MessageDlg(kNoFormModule, TMsgDlgType::mtError, {mrOk});
        if (context.BringToTop) context.BringToTop();
        return false;
    }
    if (module != services->FindModule(row.FileName))
        throw EBadInput(row.FileName, 0,
                        "the form of " + module->GetFileName() + " is named " + row.FormName + ", too",
                        "Give one of the two forms another name");
    return module->GetFormEditor() != nullptr;
}

TModuleLease::TModuleLease(TContext& context, std::string fileName)
    : context_(context), fileName_(std::move(fileName)), wasOpen_(IsFileOpen(context_, fileName_)) {
    if (!wasOpen_ && !OpenFile(context_, fileName_, false)) throw EmlLangSilent();
}

TModuleLease::TModuleLease(TContext& context, std::string fileName, TOpenedMeanwhile& opened)
    : TModuleLease(context, std::move(fileName)) {
    if (opened.Take(fileName_)) wasOpen_ = false;
}

TModuleLease::~TModuleLease() {
    if (!wasOpen_) CloseFile(context_, fileName_);
}

void TModuleLease::Save() {
    if (!wasOpen_) SaveFile(context_, fileName_);
}

void TModuleLease::SaveOrKeep() {
    try {
        Save();
    } catch (...) {
        Keep();
        throw;
    }
}

TOpenedMeanwhile::TOpenedMeanwhile(TContext& context) : context_(context) {
    for (const auto& row : context.Rows.FormNames.Items())
        if (!IsFileOpen(context, row->FileName)) closed_.insert(row->FileName);
}

TOpenedMeanwhile::~TOpenedMeanwhile() {
    for (const std::string& file : closed_)
        if (const auto module = GetModuleFromFileName(context_, file);
            module != nullptr && !module->GetModified())
            CloseFile(context_, file);
}

void TOpenedMeanwhile::Save() {
    for (const std::string& file : closed_) {
        const auto module = GetModuleFromFileName(context_, file);
        if (module != nullptr && module->GetModified()) SaveFile(context_, file);
    }
}

void TOpenedMeanwhile::Leave(const std::string& file) {
    if (IsFileOpen(context_, file)) closed_.erase(file);
}

std::shared_ptr<IOTAComponent> FindComponentOf(IOTAFormEditor& editor, const TComponentTest& fits) {
    const auto root = editor.GetRootComponent();
    const auto found = root == nullptr ? nullptr : FirstOf(*root, fits);
    return found == nullptr || found->GetOwner() == root ? found : editor.FindComponent(found->GetName());
}

std::shared_ptr<TmlCustomLang> FindCustomLang(IMlRuntime& runtime, IOTAFormEditor& editor,
                                              const std::string& name) {
    const auto named = name.empty() ? nullptr : editor.FindComponent(name);
    if (named != nullptr && runtime.InheritsFrom(named->GetComponentType(), "TmlCustomLang"))
        return runtime.AsCustomLang(named);
    return runtime.AsCustomLang(FindComponentOf(editor, [&](IOTAComponent& component) {
        return runtime.InheritsFrom(component.GetComponentType(), "TmlCustomLang");
    }));
}

TFormAnalysis AnalyzeFile(TContext& context, const std::string& fileName) {
    const auto module = GetModuleFromFileName(context, fileName);
    const auto editor = GetFormEditorFromModule(module);
    if (editor == nullptr) return {};
    const auto root = editor->GetRootComponent();
    const auto ancestor = root == nullptr ? nullptr : root->GetAncestor();
    const std::string derivesFrom = ancestor == nullptr ? std::string() : ancestor->GetName();
    const auto lang = FindCustomLang(*context.Host.Runtime, *editor);
    if (lang == nullptr) return {"", "", 0, module->GetFormName(), "", derivesFrom};
    const bool isInherited = lang->GetComponent()->GetOrigin() == TComponentOrigin::coInherited;
    return {lang->GetName(),       lang->GetClassName(),           lang->GetNumLang(),
            module->GetFormName(), isInherited ? derivesFrom : "", derivesFrom};
}

}  // namespace tml
