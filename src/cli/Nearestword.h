#pragma once

#include <string>
#include <vector>

namespace tml {

/// Of some words the one that was most likely meant, without regard to case; "" where none is near.
std::string NearestWord(const std::vector<std::string>& words, const std::string& word);

}  // namespace tml
