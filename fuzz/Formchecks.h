#pragma once

#include <string>

namespace tml::fuzz {

/// What holds for every form file that can be read: it comes back byte for byte, it can be converted to
/// the other kind and back, and what is changed is there when the file is read again.
void CheckForm(const std::string& bytes);

}  // namespace tml::fuzz
