#pragma once

#include "platform/Changes.h"

namespace tml {

class TModules;

/// Checks the whole set, then makes it as one step; what does not fit is EBadInput and nothing is changed.
void ApplyChangeSet(TModules& modules, const TChangeSet& changes);

}  // namespace tml
