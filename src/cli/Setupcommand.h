#pragma once

#include "cli/Program.h"

namespace tml {

/// "setup": many forms set up for translation in one pass.
void AddSetupCommand(CLI::App& app, TProgram& program);

}  // namespace tml
