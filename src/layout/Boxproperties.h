#pragma once

#include <string>

#include "forms/Formvalue.h"
#include "layout/Layoutbox.h"

namespace tml {

/// Takes what the form says of a control; what is no value for its property is passed over.
void ReadBoxProperties(TLayoutBox& box);

/// A number as a length; none for another value.
std::optional<int> LengthIn(const TFormValue* value);
/// An identifier "True"; other when the form does not hold the property.
bool FlagIn(const TFormValue* value, bool other);
/// The text of a string, or the lines of a list with LF between them; "" for another value.
std::string TextIn(const TFormValue* value);
/// The identifier, "" for another value.
std::string NameIn(const TFormValue* value);
/// Of an item of a collection; nullptr where it does not hold the property.
const TFormValue* FindIn(const std::vector<TFormProperty>& item, std::string_view name);

}  // namespace tml
