#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/Errors.h"
#include "cli/Workplace.h"
#include "core/Formfamilies.h"
#include "scan/Scaninput.h"

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

/// What the units of a scan have in common.
struct TScanShared {
    std::string DefaultClass;  ///< of a component that is still to be inserted
    TFormComponents Others;    ///< of the project's forms; empty outside a project
    TReceiver ForUnits;        ///< of units without a form
    TFormFamilies Families = {};
};

/// Outside a project: the component that an insertion would create serves all units.
TScanShared SharedOfPaths(const std::string& defaultClass);
/// Reads the components of the project's forms. Units without a form have that of the default form for
/// units, where the project's settings choose one of its forms; one that cannot be read is told to
/// onProblem and not taken.
TScanShared SharedOfProject(TWorkplace& workplace, const std::string& defaultClass,
                            const std::function<void(const EBadInput&)>& onProblem);

/// Fills in a unit outside a project from its bytes.
void TakeLooseUnit(const std::string& fileName, std::string_view bytes, const TScanShared& shared,
                   TScanInput& input);

/// Fills in a unit of the project: its text and its component with the strings that it holds (the one that an
/// insertion would create where the form has none). EBadInput for a unit that cannot be read.
void ReadTarget(TWorkplace& workplace, const TScanTarget& target, const TScanShared& shared,
                TScanInput& input);

}  // namespace tml
