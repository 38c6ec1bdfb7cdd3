#pragma once

#include "cli/Program.h"

namespace tml {

/// "stats": how far each language of each form is.
void AddStatsCommand(CLI::App& app, TProgram& program);

}  // namespace tml
