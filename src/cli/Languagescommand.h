#pragma once

#include "cli/Program.h"

namespace tml {

/// "languages": those of forms and of dispatchers.
void AddLanguagesCommand(CLI::App& app, TProgram& program);

}  // namespace tml
