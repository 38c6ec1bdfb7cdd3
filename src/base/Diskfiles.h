#pragma once

#include <functional>
#include <memory>

#include "base/Files.h"

namespace tml {

/// The file system of the machine. stop is asked again and again while a lock is waited for: true ends the
/// waiting with an EFileError.
std::unique_ptr<IFileSystem> MakeDiskFileSystem(std::function<bool()> stop = {});

}  // namespace tml
