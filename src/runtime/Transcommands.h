#pragma once

#include "windows/Actions.h"

namespace tml {

class TfrmTransEditor;

/// The commands of the translation editor, bound to it, with their places.
TActions CommandsOf(TfrmTransEditor& editor);

}  // namespace tml
