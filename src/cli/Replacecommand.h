#pragma once

#include "cli/Program.h"

namespace tml {

/// "replace": moves strings into components and rewrites the sources.
void AddReplaceCommand(CLI::App& app, TProgram& program);

}  // namespace tml
