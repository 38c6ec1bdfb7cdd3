#pragma once

#include "cli/Program.h"

namespace tml {

/// "find": lists where the translation tables hold a phrase.
void AddFindCommand(CLI::App& app, TProgram& program);
/// "replace-phrase": replaces it there.
void AddReplacePhraseCommand(CLI::App& app, TProgram& program);

}  // namespace tml
