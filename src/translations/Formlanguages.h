#pragma once

#include "core/Context.h"

namespace tml {

/// The command "&Languages...": edits the language names of the selected rows, or of a dispatcher.
void sbLanguagesClick(TContext& context);

/// Lets the person edit the languages of a dispatcher; false where they stay as they are.
bool EditDispatcherLanguages(TContext& context, TmlLangDispatcher& dispatcher);

}  // namespace tml
