#pragma once

#include "cli/Program.h"

namespace tml {

/// The commands "save", "load", "merge" and "load-language".
void AddSaveCommand(CLI::App& app, TProgram& program);
void AddLoadCommand(CLI::App& app, TProgram& program);
void AddMergeCommand(CLI::App& app, TProgram& program);
void AddLoadLanguageCommand(CLI::App& app, TProgram& program);

}  // namespace tml
