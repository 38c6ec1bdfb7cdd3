#include "runtime/Runtime.h"

#include <sstream>

#include "base/Errors.h"
#include "runtime/Classes.h"
#include "runtime/Langfiles.h"
#include "runtime/Langview.h"
#include "runtime/Mltranseditor.h"

namespace tml {
namespace {

bool IsA(const std::shared_ptr<IOTAComponent>& component, const char* ancestor) {
    return component != nullptr && ClassInheritsFrom(component->GetComponentType(), ancestor);
}

/// The published properties of a class of the suite, those of its ancestors there included.
TStringList PropertiesOf(const std::string& className) {
    TStringList properties;
    for (const TRuntimeClass* row = FindRuntimeClass(className); row != nullptr;
         row = FindRuntimeClass(row->Ancestor)) {
        std::istringstream words{std::string(row->Properties)};
        for (std::string word; words >> word;)
            properties.Add(word);
    }
    return properties;
}

class TMlRuntime : public IMlRuntime {
  public:
    explicit TMlRuntime(IRegistry* registry) : registry_(registry) {
        TransEditorForms = [this](const auto& langs, const auto& place, const auto& onChangeStrID) {
            return EditTranslations(langs, place, onChangeStrID);
        };
        TransEditorDlg = [this](TmlCustomLang& lang, const auto& place, const auto& onChangeStrID) {
            return !TransEditorForms({&lang}, place, onChangeStrID).empty();
        };
    }

    const std::vector<std::string>& NamesArray() const override { return LangClassNames(); }

    bool IsRegistered(const std::string& className) const override {
        const TRuntimeClass* found = FindRuntimeClass(className);
        return found != nullptr && found->Placeable;
    }
    bool InheritsFrom(const std::string& className, const std::string& ancestor) const override {
        return ClassInheritsFrom(className, ancestor);
    }
    std::string UnitOf(const std::string& className) const override {
        const TRuntimeClass* found = FindRuntimeClass(className);
        return found == nullptr ? std::string() : std::string(found->Unit);
    }
    std::vector<std::string> PropertiesWithout(const std::string& className,
                                               const std::string& otherClass) const override {
        const TStringList others = PropertiesOf(otherClass);
        std::vector<std::string> missing;
        for (const std::string& property : PropertiesOf(className))
            if (others.IndexOf(property) < 0) missing.push_back(property);
        return missing;
    }
    std::shared_ptr<TmlCustomLang> AsCustomLang(const std::shared_ptr<IOTAComponent>& component) override {
        return IsA(component, "TmlCustomLang") ? std::make_shared<TmlLangView>(component, files_) : nullptr;
    }
    std::shared_ptr<TmlLangDispatcher> AsDispatcher(
        const std::shared_ptr<IOTAComponent>& component) override {
        return IsA(component, "TmlLangDispatcher") ? std::make_shared<TmlDispatcherView>(component) : nullptr;
    }
    std::unique_ptr<ITranslationFiles> OpenTranslationFiles(const std::string& projectName) override {
        return files_.Open(projectName);
    }

  private:
    std::vector<TmlCustomLang*> EditTranslations(const std::vector<TmlCustomLang*>& langs,
                                                 const TTransEditorPlace& place,
                                                 const TChangeStrID& onChangeStrID) {
        const auto window = OpenEditor(langs, place, onChangeStrID);
        if (window == nullptr) return {};
        Dialogs->ShowModal(*window);
        return window->ChangedLangs();
    }

    /// nullptr where the person stops it on the way.
    std::unique_ptr<TfrmTransEditor> OpenEditor(const std::vector<TmlCustomLang*>& langs,
                                                const TTransEditorPlace& place,
                                                const TChangeStrID& onChangeStrID) {
        const TProgressEnd end(*Dialogs);
        try {
            return std::make_unique<TfrmTransEditor>(*this, langs, place, onChangeStrID, memory_, registry_);
        } catch (const EmlLangSilent&) {
            return nullptr;
        }
    }

    TLangFiles files_{*this};
    TTransEditorMemory memory_;
    IRegistry* registry_;
};

}  // namespace

std::unique_ptr<IMlRuntime> MakeMlRuntime(IRegistry* registry) {
    return std::make_unique<TMlRuntime>(registry);
}

}  // namespace tml
