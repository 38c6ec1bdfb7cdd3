#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/Stringlist.h"
#include "platform/Toolsapi.h"

namespace tml {

/// Typed reading and writing of a component's properties. What the form does not hold is read through its
/// ancestors. A write changes nothing when the value is the same already; one that holds without being
/// stored, as the ancestor's or as the default, is not stored.

/// None when neither the form nor an ancestor holds the property.
std::optional<TFormValue> ReadProp(IOTAComponent& component, const std::string& name);
/// Stores a value, or lets the ancestor's equal one hold.
void WriteProp(IOTAComponent& component, const std::string& name, const TFormValue& value);
/// The component that a reference names; nullptr when it names none.
std::shared_ptr<IOTAComponent> ReadComponentProp(IOTAComponent& component, const std::string& name);
int ReadIntegerProp(IOTAComponent& component, const std::string& name, int defaultValue);
void WriteIntegerProp(IOTAComponent& component, const std::string& name, int value, int defaultValue);
bool ReadBooleanProp(IOTAComponent& component, const std::string& name, bool defaultValue);
void WriteBooleanProp(IOTAComponent& component, const std::string& name, bool value, bool defaultValue);
/// "" when the property is not held.
std::string ReadStringProp(IOTAComponent& component, const std::string& name);
void WriteStringProp(IOTAComponent& component, const std::string& name, const std::string& value);
/// name is that of the property; the form stores it under name + ".Strings", and always as a whole.
TStringList ReadListProp(IOTAComponent& component, const std::string& name);
void WriteListProp(IOTAComponent& component, const std::string& name, const TStringList& list);

}  // namespace tml
