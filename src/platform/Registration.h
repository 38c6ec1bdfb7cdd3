#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/Toolsapi.h"

namespace tml {

/// What a package may register while it is loaded.
class IRegistration {
  public:
    virtual ~IRegistration() = default;
    /// Adopts the wizard; it is released when the package unloads.
    virtual void RegisterPackageWizard(std::shared_ptr<IOTAWizard> wizard) = 0;
};

/// A design-time package: its entry, and what runs when all that it registered has been released.
struct TPackage {
    std::string Name;
    std::function<void(IRegistration&)> Register;
    std::function<void()> Finalization;
};

}  // namespace tml
