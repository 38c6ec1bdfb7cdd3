#pragma once

#include "cli/Program.h"

namespace tml {

void AddCheckCommand(CLI::App& app, TProgram& program);

}  // namespace tml
