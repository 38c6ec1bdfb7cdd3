#pragma once

#include "cli/Program.h"

namespace tml {

/// "forms": lists the forms of a project.
void AddFormsCommand(CLI::App& app, TProgram& program);

}  // namespace tml
