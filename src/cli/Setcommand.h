#pragma once

#include "cli/Program.h"

namespace tml {

/// "set": one text of a table.
void AddSetCommand(CLI::App& app, TProgram& program);

}  // namespace tml
