#pragma once

#include "cli/Program.h"

namespace tml {

/// "completion": the script by which a shell completes the program's commands and options.
void AddCompletionCommand(CLI::App& app, TProgram& program);

}  // namespace tml
