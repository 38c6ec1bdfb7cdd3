#pragma once

#include <string>
#include <vector>

#include "platform/Toolsapi.h"
#include "runtime/Formparts.h"

namespace tml {

/// The property "ExtendedTranslations" of a localization component: texts of properties that the rules on
/// texts leave out.

struct TExtendedText {
    std::string Component;  ///< path, "" for the owner
    std::string Property;   ///< path, as behind the component in a key
    std::vector<std::string> Values;
};

std::vector<TExtendedText> ReadExtended(IOTAComponent& lang);
/// Brings the value of the active language (1-based place) up to what the form shows.
void UpdateExtended(IOTAComponent& lang, const TFormParts& parts, int active);
/// Empties the values of all languages but the base language.
void ClearExtended(IOTAComponent& lang);
/// Moves the values along with their languages; former as in MovedValues.
void MoveExtended(IOTAComponent& lang, const std::vector<int>& former);

}  // namespace tml
