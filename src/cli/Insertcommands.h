#pragma once

#include "cli/Program.h"

namespace tml {

/// "insert" and "languages": components on forms, and their languages.
void AddInsertCommand(CLI::App& app, TProgram& program);
void AddLanguagesCommand(CLI::App& app, TProgram& program);

}  // namespace tml
