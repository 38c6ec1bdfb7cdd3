#pragma once

#include <string>
#include <vector>

namespace tml::bench {

/// The paths of all files in the folder and below it, sorted.
std::vector<std::string> FilesBelow(const std::string& folder);

/// Reads a file into the buffer, whose storage is used again. Throws std::runtime_error naming the path.
void ReadInto(std::string& buffer, const std::string& path);

}  // namespace tml::bench
