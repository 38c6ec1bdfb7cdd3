#include "runtime/Runtime.h"

#include "runtime/Classes.h"
#include "runtime/Langfiles.h"
#include "runtime/Langview.h"

namespace tml {
namespace {

bool IsA(const std::shared_ptr<IOTAComponent>& component, const char* ancestor) {
    return component != nullptr && ClassInheritsFrom(component->GetComponentType(), ancestor);
}

class TMlRuntime : public IMlRuntime {
  public:
    const std::vector<std::string>& NamesArray() const override { return LangClassNames(); }

    bool IsRegistered(const std::string& className) const override {
        const TRuntimeClass* found = FindRuntimeClass(className);
        return found != nullptr && found->Placeable;
    }
    bool InheritsFrom(const std::string& className, const std::string& ancestor) const override {
        return ClassInheritsFrom(className, ancestor);
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
    TLangFiles files_{*this};
};

}  // namespace

std::unique_ptr<IMlRuntime> MakeMlRuntime() {
    return std::make_unique<TMlRuntime>();
}

}  // namespace tml
