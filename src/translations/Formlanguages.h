#pragma once

#include "core/Context.h"

namespace tml {

/// The command "&Languages...": edits the language names of the selected rows, or of a dispatcher.
void sbLanguagesClick(TContext& context);

}  // namespace tml
