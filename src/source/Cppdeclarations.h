#pragma once

#include "source/Declarations.h"

namespace tml {

/// What a C++ text declares.
TDeclarationLists ReadCppDeclarations(const TSourceText& source);

}  // namespace tml
