#pragma once

#include "cli/Program.h"

namespace tml {

/// "texts": lists the entries of the tables.
void AddTextsCommand(CLI::App& app, TProgram& program);

}  // namespace tml
