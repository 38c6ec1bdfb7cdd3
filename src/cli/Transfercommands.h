#pragma once

#include "cli/Program.h"

namespace tml {

/// The commands "save", "load", "merge", "load-language" and "export-properties".
void AddSaveCommand(CLI::App& app, TProgram& program);
void AddLoadCommand(CLI::App& app, TProgram& program);
void AddMergeCommand(CLI::App& app, TProgram& program);
void AddLoadLanguageCommand(CLI::App& app, TProgram& program);
void AddExportPropertiesCommand(CLI::App& app, TProgram& program);

}  // namespace tml
