#include "ide/Packagehost.h"

#include <algorithm>

namespace tml {

class TPackageHost::TLoaded : public IRegistration {
  public:
    explicit TLoaded(TPackage package) : package_(std::move(package)) {}
    ~TLoaded() override {
        while (!wizards_.empty())
            wizards_.pop_back();
        if (package_.Finalization) package_.Finalization();
    }
    TLoaded(const TLoaded&) = delete;
    TLoaded& operator=(const TLoaded&) = delete;

    void RegisterPackageWizard(std::shared_ptr<IOTAWizard> wizard) override {
        wizards_.push_back(std::move(wizard));
    }
    void Register() { package_.Register(*this); }
    const std::string& Name() const { return package_.Name; }

  private:
    TPackage package_;
    std::vector<std::shared_ptr<IOTAWizard>> wizards_;
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

void TPackageHost::Unload(const std::string& name) {
    std::erase_if(packages_, [&](const auto& loaded) { return loaded->Name() == name; });
}

}  // namespace tml
