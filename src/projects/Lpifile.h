#pragma once

#include "projects/Projectfiles.h"

namespace tml {

/// A project (.lpi).
TParsedProject ParseLpi(const std::string& bytes, const std::string& fileName, const std::string& codePage);
/// A group (.lpg).
TParsedProject ParseLpg(const std::string& bytes, const std::string& fileName, const std::string& codePage);

}  // namespace tml
