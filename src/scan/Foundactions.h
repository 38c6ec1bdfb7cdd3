#pragma once

#include "windows/Actions.h"

namespace tml {

class TfrmFound;

/// The commands of the review, with their places on its tool bar and in its popup menu.
TActions ActionsOf(TfrmFound& window);

}  // namespace tml
