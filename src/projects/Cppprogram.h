#pragma once

#include "projects/Projectfiles.h"

namespace tml {

/// The main source of a C++ project.
TParsedProject ParseCppProgram(const std::string& bytes, const std::string& fileName,
                               const std::string& codePage);

}  // namespace tml
