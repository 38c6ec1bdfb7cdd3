#pragma once

#include <string>

#include "forms/Formvalue.h"

namespace tml {

/// The properties of components that can be set beside languages, links and lists, with what their values
/// are: "MirrorLayout: True or False; Tag: a number".
std::string FurtherProperties();
/// A line "Name=Value", the name without regard to case. EBadInput for another property, or no such value.
TFormProperty FurtherProperty(const std::string& line);
/// True for the value that a form does not store.
bool IsDefault(const TFormProperty& property);

}  // namespace tml
