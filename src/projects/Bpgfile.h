#pragma once

#include "projects/Projectfiles.h"

namespace tml {

/// A group (.bpg).
TParsedProject ParseBpg(const std::string& bytes, const std::string& fileName, const std::string& codePage);

}  // namespace tml
