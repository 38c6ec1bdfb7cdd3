#pragma once

#include <vector>

#include "platform/Toolsapi.h"
#include "runtime/Formparts.h"
#include "tables/Translationfile.h"

namespace tml {

/// The property "ExtendedTranslations" of a localization component: texts of properties that the rules on
/// texts leave out.

std::vector<TExtendedItem> ReadExtended(IOTAComponent& lang);
/// Gives the items of the component, in their order, these values; what else an item holds stays.
void WriteExtended(IOTAComponent& lang, const std::vector<TExtendedItem>& items);

/// Moves the values along with their languages; former as in MovedValues.
void MoveExtended(IOTAComponent& lang, const std::vector<int>& former);

/// Brings the values of the active language (1-based place) up to what the form shows.
void UpdateExtended(std::vector<TExtendedItem>& items, const TFormParts& parts, int active);

}  // namespace tml
