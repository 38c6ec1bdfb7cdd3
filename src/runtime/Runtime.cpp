#include "runtime/Runtime.h"

#include "runtime/Classes.h"
#include "runtime/Langview.h"

namespace tml {
namespace {

template <typename View>
std::shared_ptr<View> ViewOn(const std::shared_ptr<IOTAComponent>& component, const char* ancestor) {
    if (!component || !ClassInheritsFrom(component->GetComponentType(), ancestor)) return nullptr;
    return std::make_shared<View>(component);
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
        return ViewOn<TmlLangView>(component, "TmlCustomLang");
    }
    std::shared_ptr<TmlLangDispatcher> AsDispatcher(
        const std::shared_ptr<IOTAComponent>& component) override {
        return ViewOn<TmlDispatcherView>(component, "TmlLangDispatcher");
    }
};

}  // namespace

std::unique_ptr<IMlRuntime> MakeMlRuntime() {
    return std::make_unique<TMlRuntime>();
}

}  // namespace tml
