#pragma once

#include "cli/Program.h"

namespace tml {

/// "scan": finds strings and changes nothing.
void AddScanCommand(CLI::App& app, TProgram& program);

}  // namespace tml
