#pragma once

#include "cli/Program.h"

namespace tml {

/// "form-text" and "form-binary": any form file as text, or as binary, on standard output.
void AddFormTextCommand(CLI::App& app, TProgram& program);
void AddFormBinaryCommand(CLI::App& app, TProgram& program);

}  // namespace tml
