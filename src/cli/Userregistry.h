#pragma once

#include <memory>

#include "cli/Program.h"
#include "platform/Registry.h"

namespace tml {

/// The settings file of the chosen folder; the folder is made by the first write.
std::unique_ptr<IRegistry> OpenUserRegistry(const TProgram& program);

}  // namespace tml
