#include "cli/Scantargets.h"

#include <algorithm>
#include <set>

#include "base/Codedtext.h"
#include "base/Folderindex.h"
#include "base/Utf8.h"
#include "core/Closedforms.h"
#include "translations/Memini.h"

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

/// A module that is open while this lives, and closed then unless it was open before.
class TOpenModule {
  public:
    TOpenModule(TWorkplace& workplace, const std::string& fileName)
        : wasOpen_(workplace.Modules().FindModule(fileName) != nullptr),
          module_(workplace.Modules().OpenModule(fileName, false)) {}
    ~TOpenModule() {
        if (!wasOpen_) module_->Close();
    }
    TOpenModule(const TOpenModule&) = delete;
    TOpenModule& operator=(const TOpenModule&) = delete;

    IOTAModule* operator->() const { return module_.get(); }
    IOTAModule& operator*() const { return *module_; }

  private:
    bool wasOpen_;
    std::shared_ptr<IOTAModule> module_;
};

/// The component as the form's file tells it, read without opening the form.
std::string ComponentInFile(TWorkplace& workplace, const std::string& formFile) {
    const THost& host = workplace.Host();
    try {
        return AnalyzeClosedForm(*host.Files, formFile, host.Runtime->NamesArray()).ComponentName;
    } catch (const EBadInput&) {
        return {};  // opening the form tells what is wrong with it
    }
}

TReceiver ReceiverForUnits(TWorkplace& workplace, const TScanTarget& form, const std::string& defaultClass) {
    const TOpenModule module(workplace, form.FileName);
    return ReceiverOf(*workplace.Host().Runtime, *module, defaultClass);
}

std::string DefaultFormForUnits(IFileSystem& files, const std::string& project) {
    return TmlMemIniFile(files, WithExtension(project, ".mlproj"))
        .ReadString("Settings", "DefaultFormForUnits", "");
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

TScanShared SharedOfPaths(const std::string& defaultClass) {
    TScanShared shared{defaultClass, nullptr, {}};
    shared.ForUnits.Component.ComponentName = InsertedName(defaultClass, "");
    return shared;
}

TScanShared SharedOfProject(TWorkplace& workplace, const std::string& defaultClass,
                            const std::function<void(const EBadInput&)>& onProblem) {
    TScanShared shared = SharedOfPaths(defaultClass);
    IOTAProject& project = *workplace.Modules().GetActiveProject();
    IFileSystem& files = *workplace.Host().Files;
    TFolderIndex folders(files);
    const auto components = std::make_shared<TFormComponents>();
    const std::vector<TScanTarget> targets = TargetsOfProject(project, {}, {});
    for (const TScanTarget& target : targets)
        if (!target.FormName.empty())
            components->Add(target.FormName, ComponentInFile(workplace, folders.FormFileOf(target.FileName)));
    shared.Others = components;
    try {
        const std::string defaultForm = DefaultFormForUnits(files, project.GetFileName());
        for (const TScanTarget& target : targets)
            if (!target.FormName.empty() && SameText(target.FormName, defaultForm))
                shared.ForUnits = ReceiverForUnits(workplace, target, defaultClass);
    } catch (const EBadInput& error) {
        onProblem(error);
    }
    return shared;
}

void ReadTarget(TWorkplace& workplace, const TScanTarget& target, const TScanShared& shared,
                TScanInput& input) {
    input.Others = shared.Others;
    // Outside a project there is no code page that an IDE would read the unit in.
    if (shared.Others == nullptr) {
        input.Source =
            ReadSource(TCodedText::TextOf(workplace.Host().Files->Read(target.FileName)), target.FileName);
        return TakeReceiver(input, shared.ForUnits, true);
    }
    const TOpenModule module(workplace, target.FileName);
    TakeUnit(input, *module);
    if (target.FormName.empty())
        return TakeReceiver(input, shared.ForUnits, shared.ForUnits.Component.FormName.empty());
    const bool hasForm = module->GetFormEditor() != nullptr;
    TakeReceiver(input,
                 hasForm ? ReceiverOf(*workplace.Host().Runtime, *module, shared.DefaultClass)
                         : SharedOfPaths(shared.DefaultClass).ForUnits,
                 true);
}

}  // namespace tml
