#pragma once

#include "cli/Program.h"

namespace tml {

/// "update": brings the tables up to what the forms show.
void AddUpdateCommand(CLI::App& app, TProgram& program);
/// "clear": empties the translations.
void AddClearCommand(CLI::App& app, TProgram& program);

}  // namespace tml
