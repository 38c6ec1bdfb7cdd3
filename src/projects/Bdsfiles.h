#pragma once

#include "projects/Projectfiles.h"

namespace tml {

/// A project (.bdsproj).
TParsedProject ParseBdsproj(const std::string& bytes, const std::string& fileName,
                            const std::string& codePage);
/// A group (.bdsgroup).
TParsedProject ParseBdsgroup(const std::string& bytes, const std::string& fileName,
                             const std::string& codePage);

}  // namespace tml
