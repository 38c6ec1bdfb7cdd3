#pragma once

#include <optional>
#include <string>

#include "forms/Formvalue.h"
#include "ide/Propertytypes.h"

namespace tml {

/// A value as a person reads and types it: strings as their text, numbers, names and sets as a text form has
/// them; of what cannot be typed how much it is.
std::string ValueText(const TFormValue& value);
/// Whether a string can be typed on one line.
bool IsOneLine(const std::string& text);
/// The value that a typed text stands for; none and the reason ("takes a whole number") where the property
/// takes no such value. Whether there is such a component or method is not asked.
std::optional<TFormValue> ValueOfText(const TPropertyType& type, const std::string& text,
                                      std::string& reason);

}  // namespace tml
