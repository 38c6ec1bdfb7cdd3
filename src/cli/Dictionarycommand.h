#pragma once

#include "cli/Program.h"

namespace tml {

/// "dictionary": fills a language of forms from a dictionary, or lets it learn from the forms.
void AddDictionaryCommand(CLI::App& app, TProgram& program);

}  // namespace tml
