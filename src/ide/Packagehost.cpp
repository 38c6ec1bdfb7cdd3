#include "ide/Packagehost.h"

#include <algorithm>

namespace tml {

class TPackageHost::TLoaded : public IRegistration {
  public:
    explicit TLoaded(TPackage package) : package_(std::move(package)) {}
    ~TLoaded() override {
        registered_ = {};
        while (!wizards_.empty())
            wizards_.pop_back();
        if (package_.Finalization) package_.Finalization();
    }
    TLoaded(const TLoaded&) = delete;
    TLoaded& operator=(const TLoaded&) = delete;

    void RegisterPackageWizard(std::shared_ptr<IOTAWizard> wizard) override {
        wizards_.push_back(std::move(wizard));
    }
    void RegisterComponents(const std::string& page, const std::vector<std::string>& classes) override {
        registered_.Components.push_back({page, classes});
    }
    void RegisterComponentEditor(const std::string& componentClass, TComponentEditorClass editor) override {
        registered_.ComponentEditors.push_back({componentClass, std::move(editor)});
    }
    void RegisterPropertyEditor(const std::string& propertyType, const std::string& componentClass,
                                const std::string& propertyName, TPropertyEditorClass editor) override {
        registered_.PropertyEditors.push_back(
            {propertyType, componentClass, propertyName, std::move(editor)});
    }
    void RegisterSelectionEditor(const std::string& componentClass, TSelectionEditorClass editor) override {
        registered_.SelectionEditors.push_back({componentClass, std::move(editor)});
    }
    void RegisterActions(const std::string& category, const std::vector<std::string>& classes) override {
        registered_.Actions.push_back({category, classes});
    }
    void Register() { package_.Register(*this); }
    const std::string& Name() const { return package_.Name; }
    const TRegistrations& Registered() const { return registered_; }

  private:
    TPackage package_;
    std::vector<std::shared_ptr<IOTAWizard>> wizards_;
    TRegistrations registered_;
};

TPackageHost::TPackageHost() = default;

TPackageHost::~TPackageHost() {
    while (!packages_.empty())
        packages_.pop_back();
}

void TPackageHost::Load(const TPackage& package) {
    auto loaded = std::make_unique<TLoaded>(package);
    loaded->Register();
    packages_.push_back(std::move(loaded));
}

TRegistrations TPackageHost::Registered() const {
    TRegistrations all;
    for (const auto& package : packages_)
        all.Add(package->Registered());
    return all;
}

void TPackageHost::Unload(const std::string& name) {
    std::erase_if(packages_, [&](const auto& loaded) { return loaded->Name() == name; });
}

}  // namespace tml
