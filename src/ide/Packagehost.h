#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ide/Registrations.h"

namespace tml {

/// Loads design-time packages and unloads them: wizards released in reverse order, then the finalization.
class TPackageHost {
  public:
    TPackageHost();
    /// Unloads what is still loaded, last first.
    ~TPackageHost();
    TPackageHost(const TPackageHost&) = delete;
    TPackageHost& operator=(const TPackageHost&) = delete;

    void Load(const TPackage& package);
    /// Nothing for a package that is not loaded.
    void Unload(const std::string& name);
    /// What the loaded packages have registered.
    TRegistrations Registered() const;

  private:
    class TLoaded;

    std::vector<std::unique_ptr<TLoaded>> packages_;
};

}  // namespace tml
