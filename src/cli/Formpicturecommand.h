#pragma once

#include "cli/Program.h"

namespace tml {

/// "form-picture": a form as it is shown, as a picture.
void AddFormPictureCommand(CLI::App& app, TProgram& program);

}  // namespace tml
