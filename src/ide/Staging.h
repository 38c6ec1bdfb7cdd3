#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Files.h"
#include "projects/Projectmodel.h"

namespace tml {

/// A file that is to be written.
struct TStagedFile {
    std::string Path;
    std::string Bytes;
    /// What the file held when it was read; none when it was not there.
    std::optional<std::string> Expected;
};

/// Writes all files or none. They are staged beside their targets, compared with what is on the disk (a
/// file that has changed since it was read, or is read-only, is refused), then renamed. recordPath is the
/// file that lets RecoverStaged complete the renames after a crash. Throws EFileError or EBadInput; then
/// every file is as it was, or, where even putting back failed, the message says what the next start does.
void WriteTogether(IFileSystem& files, const std::string& recordPath, const std::vector<TStagedFile>& staged);

/// Where the commit record of a project stands: beside the project file, the same for all of its files
/// ("Project1.dproj" and "Project1.dpr").
std::string CommitRecordPath(const std::string& projectFile);

/// Completes what a crash left behind: with a commit record everything staged that still fits is renamed;
/// without one, left-over stage files of the given files are removed. Gives what could not be completed.
std::vector<TProjectProblem> RecoverStaged(IFileSystem& files, const std::string& recordPath,
                                           const std::vector<std::string>& paths);

}  // namespace tml
