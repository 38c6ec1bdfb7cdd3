#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Errors.h"
#include "base/Files.h"

namespace tml {

/// A file that is to be written.
struct TStagedFile {
    std::string Path;
    std::optional<std::string> Bytes;  ///< none: it is to be removed
    /// What the file held when it was read; none when it was not there.
    std::optional<std::string> Expected;
};

/// A file that somebody else has written since it was read; File() is its path.
class EChangedOnDisk : public EFileError {
  public:
    using EFileError::EFileError;
};

/// Writes all files or none. They are staged beside their targets, compared with what is on the disk (a
/// file that has changed since it was read is EChangedOnDisk, one that is read-only is refused), then
/// renamed. A record in each of their folders lets RecoverStaged complete the renames after a crash. Throws
/// EFileError or EBadInput; then every file is as it was, or, where even putting back failed, the message
/// says what the next start does.
void WriteTogether(IFileSystem& files, const std::vector<TStagedFile>& staged);

/// Completes what a crash left behind in the folders of the given files: what a record there names is
/// renamed, in other folders too; what was staged without one is removed. EFileError for a record that
/// cannot be carried out: it stays, nothing is changed, and the message says what to do.
void RecoverStaged(IFileSystem& files, const std::vector<std::string>& paths);

}  // namespace tml
