#pragma once

#include "source/Declarations.h"

namespace tml {

/// What a Pascal text declares.
TDeclarationLists ReadPascalDeclarations(const TSourceText& source);

}  // namespace tml
