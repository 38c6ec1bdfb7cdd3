#pragma once

#include <string>
#include <vector>

#include "cli/Workplace.h"
#include "expert/Settings.h"
#include "scan/Scan.h"

namespace tml {

/// A unit that is to be scanned.
struct TScanTarget {
    std::string FileName;
    std::string FormName;  ///< of the unit's own form, "" for a unit without one
};

/// The units of the open project, in its order. Names choose some of its forms and units; EBadInput for
/// one that the project does not have.
std::vector<TScanTarget> TargetsOfProject(IOTAProject& project, const std::vector<std::string>& forms,
                                          const std::vector<std::string>& units);

/// Every unit file that the paths name, folders searched through; EFileError for a path that is not there.
std::vector<TScanTarget> TargetsOfPaths(IFileSystem& files, const std::vector<std::string>& paths);

/// Fills in a unit: its text and its form's component with the strings that it holds (the one that an
/// insertion would create where there is none). EBadInput for a unit that cannot be read.
void ReadTarget(TWorkplace& workplace, const TScanTarget& target, const std::string& defaultClass,
                TScanInput& input);

}  // namespace tml
