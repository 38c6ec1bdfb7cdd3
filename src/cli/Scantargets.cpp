#include "cli/Scantargets.h"

#include <algorithm>
#include <set>

#include "base/Codedtext.h"
#include "base/Errors.h"
#include "base/Utf8.h"

namespace tml {
namespace {

constexpr const char* kUnitExtensions[] = {".pas", ".pp", ".dpr", ".lpr", ".inc", ".cpp", ".c", ".h"};

bool IsUnitFile(const std::string& name) {
    const std::string extension = ExtensionOf(name);
    return std::any_of(std::begin(kUnitExtensions), std::end(kUnitExtensions),
                       [&](const char* known) { return SameText(extension, known); });
}

/// Walks folders in order; a folder that links lead to twice is walked once.
class TFolderWalk {
  public:
    TFolderWalk(IFileSystem& files, std::vector<TScanTarget>& found) : files_(files), found_(found) {}

    void Visit(const std::string& top) {
        std::vector<std::string> waiting = {top};
        while (!waiting.empty()) {
            const std::string folder = waiting.back();
            waiting.pop_back();
            if (seen_.insert(files_.Resolve(folder)).second) List(folder, waiting);
        }
    }

  private:
    void List(const std::string& folder, std::vector<std::string>& waiting) {
        const std::size_t first = waiting.size();
        for (const std::string& name : files_.List(folder)) {
            const std::string path = JoinPath(folder, name);
            const auto info = files_.Stat(path);
            if (info && info->IsFolder)
                waiting.push_back(path);
            else if (info && IsUnitFile(name))
                found_.push_back({path, ""});
        }
        std::reverse(waiting.begin() + static_cast<std::ptrdiff_t>(first), waiting.end());
    }

    IFileSystem& files_;
    std::vector<TScanTarget>& found_;
    std::set<std::string> seen_;
};

bool IsNamed(const std::vector<std::string>& names, const std::string& name) {
    return std::any_of(names.begin(), names.end(),
                       [&](const std::string& one) { return SameText(one, name); });
}

/// What a person may call a module: a unit by its whole name ("Data.Orders") or the last part of it.
std::vector<std::string> NamesOf(const TOTAModuleInfo& module) {
    return {module.Name, WithExtension(FileNameOf(module.FileName), "")};
}

std::shared_ptr<TmlCustomLang> ComponentOf(IMlRuntime& runtime, IOTAFormEditor& editor) {
    const auto root = editor.GetRootComponent();
    for (int i = 0; i < root->GetComponentCount(); ++i)
        if (auto component = runtime.AsCustomLang(root->GetComponent(i))) return component;
    return nullptr;
}

/// The name that an inserted component gets.
std::string InsertedName(const std::string& className, const std::string& formName) {
    return className.substr(1) + (formName.empty() ? "" : "_" + formName);
}

void FillFromForm(IMlRuntime& runtime, IOTAModule& module, const std::string& defaultClass,
                  TScanInput& input) {
    const auto editor = module.GetFormEditor();
    const auto root = editor->GetRootComponent();
    input.Component.FormName = module.GetFormName();
    input.Component.FormClass = root->GetComponentType();
    const auto component = ComponentOf(runtime, *editor);
    input.Component.ComponentName =
        component != nullptr ? component->GetName() : InsertedName(defaultClass, input.Component.FormName);
    if (component == nullptr) return;
    for (const TmlString& entry : component->GetStrings())
        input.Existing.push_back({entry.ID, entry.Text});
}

}  // namespace

std::vector<TScanTarget> TargetsOfProject(IOTAProject& project, const std::vector<std::string>& forms,
                                          const std::vector<std::string>& units) {
    std::vector<TScanTarget> targets;
    std::vector<std::string> met;
    for (int i = 0; i < project.GetModuleCount(); ++i) {
        const TOTAModuleInfo module = project.GetModule(i);
        if (module.Name.find('.') != std::string::npos) continue;
        const bool all = forms.empty() && units.empty();
        const bool form = !module.FormName.empty() && IsNamed(forms, module.FormName);
        const std::vector<std::string> names = NamesOf(module);
        const bool unit = std::any_of(names.begin(), names.end(),
                                      [&](const std::string& name) { return IsNamed(units, name); });
        if (!all && !form && !unit) continue;
        met.insert(met.end(), names.begin(), names.end());
        met.push_back(module.FormName);
        targets.push_back({module.FileName, module.FormName});
    }
    for (const auto* names : {&forms, &units})
        for (const std::string& name : *names)
            if (!IsNamed(met, name))
                throw EBadInput(project.GetFileName(), 0, "the project has no form or unit " + name,
                                "\"tmllang forms PROJECT\" lists them");
    return targets;
}

std::vector<TScanTarget> TargetsOfPaths(IFileSystem& files, const std::vector<std::string>& paths) {
    std::vector<TScanTarget> found;
    TFolderWalk walk(files, found);
    for (const std::string& path : paths) {
        const auto info = files.Stat(path);
        if (!info) throw EFileError(path, 0, "is not there", "Check the name");
        if (info->IsFolder)
            walk.Visit(path);
        else
            found.push_back({path, ""});
    }
    return found;
}

void ReadTarget(TWorkplace& workplace, const TScanTarget& target, const std::string& defaultClass,
                TScanInput& input) {
    input.FileName = target.FileName;
    input.Component.ComponentName = InsertedName(defaultClass, "");
    if (target.FormName.empty()) {
        input.Text = TCodedText::TextOf(workplace.Host().Files->Read(target.FileName));
        return;
    }
    const bool wasOpen = workplace.Modules().FindModule(target.FileName) != nullptr;
    const auto module = workplace.Modules().OpenModule(target.FileName, false);
    input.Text = *module->GetSourceEditor(0)->GetText();
    if (module->GetSourceEditorCount() > 1) input.Header = *module->GetSourceEditor(1)->GetText();
    if (module->GetFormEditor() != nullptr)
        FillFromForm(*workplace.Host().Runtime, *module, defaultClass, input);
    if (!wasOpen) module->Close();
}

}  // namespace tml
