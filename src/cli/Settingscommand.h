#pragma once

#include "cli/Program.h"

namespace tml {

/// "settings": lists, reads and sets the options.
void AddSettingsCommand(CLI::App& app, TProgram& program);

}  // namespace tml
