#pragma once

#include "projects/Projectfiles.h"

namespace tml {

/// A C++ project (.bpr) or package (.bpk).
TParsedProject ParseBpr(const std::string& bytes, const std::string& fileName, const std::string& codePage);

}  // namespace tml
