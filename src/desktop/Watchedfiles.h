#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/Files.h"

namespace tml {

/// Files that somebody else may write while a window works on what they held.
class TWatchedFiles {
  public:
    TWatchedFiles(IFileSystem& files, const std::vector<std::string>& fileNames);

    /// Those that are others on the disk than when the watch began, the first few by their names; "" for
    /// none.
    std::string Changed() const;

  private:
    /// None for a file that is not there, or out of reach.
    std::optional<TFileInfo> InfoOf(const std::string& file) const;

    IFileSystem& files_;
    std::vector<std::pair<std::string, std::optional<TFileInfo>>> known_;
};

}  // namespace tml
