#include "cli/Scantargets.h"

#include <algorithm>
#include <unordered_set>

#include "base/Codedtext.h"
#include "base/Utf8.h"
#include "core/Closedforms.h"
#include "translations/Memini.h"

namespace tml {
namespace {

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

/// What the form's file tells of the component, read without opening the form.
TFormAnalysis AnalysisOf(TClosedForms& closed, const std::string& unitFile) {
    try {
        return closed.Read(unitFile);
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

std::string ComponentKey(std::string_view form, std::string_view component) {
    return UpperCase(form) + "." + UpperCase(component);
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
    TClosedForms closed(workplace.Host());
    const auto components = std::make_shared<std::unordered_set<std::string>>();
    const std::vector<TScanTarget> targets = TargetsOfProject(project, {}, {});
    for (const TScanTarget& target : targets) {
        if (target.FormName.empty()) continue;
        const TFormAnalysis form = AnalysisOf(closed, target.FileName);
        components->insert(ComponentKey(target.FormName, form.ComponentName));
        shared.Families.Add(form, target.FileName);
    }
    shared.Others = [components](std::string_view form, std::string_view component) {
        return components->contains(ComponentKey(form, component));
    };
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

void TakeLooseUnit(const std::string& fileName, std::string_view bytes, const TScanShared& shared,
                   TScanInput& input) {
    // There is no code page that an IDE would read the unit in.
    TByteEncodings byteEncodings;
    std::string text = TCodedText::TextOf(bytes, {}, &byteEncodings);
    input.Source = ReadSource(std::move(text), fileName, std::move(byteEncodings));
    TakeReceiver(input, shared.ForUnits, true);
}

void ReadTarget(TWorkplace& workplace, const TScanTarget& target, const TScanShared& shared,
                TScanInput& input) {
    input.Others = shared.Others;
    const TOpenModule module(workplace, target.FileName);
    TakeUnit(input, *module);
    if (target.FormName.empty())
        return TakeReceiver(input, shared.ForUnits, shared.ForUnits.Component.FormName.empty());
    IMlRuntime& runtime = *workplace.Host().Runtime;
    const bool hasForm = module->GetFormEditor() != nullptr;
    TReceiver receiver = hasForm ? ReceiverOf(runtime, *module, shared.DefaultClass)
                                 : SharedOfPaths(shared.DefaultClass).ForUnits;
    for (const std::string& unit : shared.Families.DescendantsOf(target.FormName)) {
        const TOpenModule relative(workplace, unit);
        TakeRelative(receiver, runtime, *relative);
    }
    TakeReceiver(input, std::move(receiver), true);
}

}  // namespace tml
