#pragma once

#include <string_view>

#include "source/Language.h"

namespace tml {

/// True for a name that a class of the language can give a member: letters, digits and "_", no digit first,
/// and no word that the language keeps for itself. Letters of any script count, as newer compilers take them.
bool IsIdentifier(std::string_view name, const TLanguage& language);

}  // namespace tml
