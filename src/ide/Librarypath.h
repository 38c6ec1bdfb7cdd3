#pragma once

#include <string>

#include "base/Files.h"

namespace tml {

/// Where a program that stands in the folder finds the common library: beside itself, else where it is
/// installed.
std::string CommonLibraryPath(IFileSystem& files, const std::string& programFolder);

}  // namespace tml
