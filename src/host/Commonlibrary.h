#pragma once

#include <memory>
#include <string>

#include "base/Files.h"
#include "platform/Mlcommon.h"

namespace tml {

/// Loads from a path, or by name from where the system looks for libraries.
std::unique_ptr<ICommonLibraryLoader> MakeCommonLibraryLoader(const std::string& path);

/// Where a program that stands in the folder finds the common library: beside itself, else where it is
/// installed.
std::string CommonLibraryPath(IFileSystem& files, const std::string& programFolder);

}  // namespace tml
