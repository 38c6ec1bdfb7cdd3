#pragma once

#include <string>

#include "forms/Formtree.h"

namespace tml::testing {

/// A value in one line: 'text'#10, [set], (list), <{Name=value}>, {hex}.
std::string Dump(const TFormValue& value);
/// A node with all below it in one line: object Name:Class[position]{Property=value ... child ...}.
std::string Dump(const TFormNode& node);

std::string ReadTestFile(const std::string& path);

}  // namespace tml::testing
