#pragma once

#include "core/Context.h"

namespace tml {

/// The command "E&xclude from Translation...": lets the person choose what of the selected rows' forms is
/// excluded, and writes the lists of their components, as one step of undo; a form that fails goes back by
/// itself.
void Exclude1Click(TContext& context);

/// The same for one component, whose form is open. True when its lists have changed.
bool EditExclusions(const THost& host, TmlCustomLang& lang);

}  // namespace tml
