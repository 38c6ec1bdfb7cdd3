#pragma once

#include "core/Context.h"

namespace tml {

/// The command "&Update Translations": brings the tables of the selected rows' components up to their forms.
void Updatetranslation1Click(TContext& context);
/// The command "Cl&ear Translations".
void ClearTranslations1Click(TContext& context);

}  // namespace tml
