#pragma once

#include <string>
#include <vector>

#include "base/Files.h"

namespace tml {

/// Every unit file that the paths name, in their order; folders are searched through without what is hidden,
/// what a .gitignore leaves out and what fits one of the globs (by name, or by the path below the folder).
/// EFileError for a path that is not there, EBadInput for a named file that is no source.
std::vector<std::string> FindUnitFiles(IFileSystem& files, const std::vector<std::string>& paths,
                                       const std::vector<std::string>& excluded);

/// True for bytes that are no text: there are zeros among them, and no mark says that two bytes are one
/// character.
bool IsBinary(const std::string& bytes);

}  // namespace tml
