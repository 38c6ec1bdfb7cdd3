#pragma once

#include "platform/Toolsapi.h"
#include "runtime/Formparts.h"

namespace tml {

/// The property "ExtendedTranslations" of a localization component: texts of properties that the rules on
/// texts leave out.

/// Brings the value of the active language (1-based place) up to what the form shows.
void UpdateExtended(IOTAComponent& lang, const TFormParts& parts, int active);
/// Empties the values of all languages but the base language.
void ClearExtended(IOTAComponent& lang);

}  // namespace tml
