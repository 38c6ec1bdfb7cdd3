#pragma once

#include <memory>

#include "platform/Mlruntime.h"
#include "platform/Registry.h"

namespace tml {

/// The suite's run-time library over the components of forms. registry: where its windows keep what they
/// remember over the program's end; it must outlive the library, nullptr for nowhere.
std::unique_ptr<IMlRuntime> MakeMlRuntime(IRegistry* registry = nullptr);

}  // namespace tml
