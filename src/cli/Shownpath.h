#pragma once

#include <string>

namespace tml {

/// A path as a person at the prompt would write it: from the working folder on where it is below that, else
/// as it is.
std::string ShownPath(const std::string& path);

}  // namespace tml
