#pragma once

#include <string>

#include "base/Stringlist.h"
#include "platform/Toolsapi.h"

namespace tml {

/// Typed reading and writing of a component's properties. A write changes nothing when the value is the
/// same already; a default is not stored.

int ReadIntegerProp(IOTAComponent& component, const std::string& name, int defaultValue);
void WriteIntegerProp(IOTAComponent& component, const std::string& name, int value, int defaultValue);
/// "" when the form does not hold the property.
std::string ReadStringProp(IOTAComponent& component, const std::string& name);
/// An empty text is not stored.
void WriteStringProp(IOTAComponent& component, const std::string& name, const std::string& value);
/// name is that of the property; the form stores it under name + ".Strings".
TStringList ReadListProp(IOTAComponent& component, const std::string& name);
/// An empty list is not stored.
void WriteListProp(IOTAComponent& component, const std::string& name, const TStringList& list);

}  // namespace tml
