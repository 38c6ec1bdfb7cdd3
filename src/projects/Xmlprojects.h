#pragma once

#include "projects/Projectfiles.h"

namespace tml {

/// A project (.dproj).
TParsedProject ParseDproj(const std::string& bytes, const std::string& fileName, const std::string& codePage);
/// A C++ project (.cbproj).
TParsedProject ParseCbproj(const std::string& bytes, const std::string& fileName,
                           const std::string& codePage);
/// A group (.groupproj).
TParsedProject ParseGroupproj(const std::string& bytes, const std::string& fileName,
                              const std::string& codePage);

}  // namespace tml
