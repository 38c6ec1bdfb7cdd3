#pragma once

#include <string>
#include <vector>

#include "base/Files.h"
#include "projects/Projectmodel.h"

namespace tml {

/// The projects that one file opens.
struct TProjectSet {
    std::string GroupFile;  ///< full path of the group's file, "" for a single project
    std::vector<TProjectModel> Projects;
    std::vector<TProjectProblem> Problems;
};

/// Reads a project or a group with everything it names, and looks the files up; there is always at least one
/// project. EBadInput when path itself is missing, no project, broken, or a group without a project that can
/// be read; whatever else is missing or broken becomes a problem.
TProjectSet ReadProjectSet(IFileSystem& files, const std::string& path);

}  // namespace tml
