#pragma once

#include <memory>

#include "cli/Program.h"
#include "platform/Registry.h"

namespace tml {

/// The settings file of the chosen folder, which the first write makes; for the command that edits it.
/// EBadInput where there is no folder to keep settings in.
std::unique_ptr<IRegistry> OpenUserRegistry(const TProgram& program);

/// The same settings for a run: they are read, and what windows would keep of themselves, which nobody sees
/// here, is let go. The default component is the one that the options name.
std::unique_ptr<IRegistry> ReadUserRegistry(const TProgram& program);

}  // namespace tml
