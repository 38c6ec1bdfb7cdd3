#pragma once

#include "cli/Program.h"

namespace tml {

void AddExcludeCommand(CLI::App& app, TProgram& program);

}  // namespace tml
