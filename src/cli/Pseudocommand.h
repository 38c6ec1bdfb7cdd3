#pragma once

#include "cli/Program.h"

namespace tml {

/// "pseudo": fills a language with made-up texts.
void AddPseudoCommand(CLI::App& app, TProgram& program);

}  // namespace tml
