#pragma once

#include "core/Context.h"

namespace tml {

/// The command "&Translate": opens the translation editor on the components of the selected rows. A form
/// without a component gets one with its texts. What the editor has changed is marked as modified, and saved
/// where the unit was not open.
void Translate1Click(TContext& context, const TChangeStrID& onChangeStrID);

}  // namespace tml
