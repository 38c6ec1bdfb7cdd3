#pragma once

#include <memory>
#include <string>

#include "base/Files.h"
#include "platform/Mlcommon.h"

namespace tml {

/// Loads from a path, or by name from where the system looks for libraries.
std::unique_ptr<ICommonLibraryLoader> MakeCommonLibraryLoader(const std::string& path);

/// Where a program that stands in the folder finds what comes with it: beside itself, else where it is
/// installed.
std::string CompanionPath(IFileSystem& files, const std::string& programFolder, const std::string& name);
std::string CommonLibraryPath(IFileSystem& files, const std::string& programFolder);

}  // namespace tml
