#pragma once

#include "projects/Projectfiles.h"

namespace tml {

/// The source of a program (.dpr, .lpr) or package (.dpk).
TParsedProject ParseDpr(const std::string& bytes, const std::string& fileName, const std::string& codePage);

}  // namespace tml
