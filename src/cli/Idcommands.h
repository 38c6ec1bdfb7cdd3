#pragma once

#include "cli/Program.h"

namespace tml {

/// "rename-id": another ID for a string, in component and source.
void AddRenameIDCommand(CLI::App& app, TProgram& program);

/// "change-type": another class of the family for the components of forms.
void AddChangeTypeCommand(CLI::App& app, TProgram& program);

}  // namespace tml
