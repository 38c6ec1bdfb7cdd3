#pragma once

#include <string>
#include <vector>

#include "scan/Foundrows.h"
#include "scan/Scanreplace.h"

namespace tml {

struct TSetupPlan;

/// A string of a form's source, and whether a call takes its place.
struct TSetupString {
    int Line = 0;  ///< 1-based
    std::string ID;
    std::string Text;
    TAdvice Advice = TAdvice::None;
    bool Taken = true;
};

using TSetupStrings = std::vector<TSetupString>;

/// Looks for the strings in the source of the plan's ready forms that have not been searched and enters them
/// there, with the IDs that a run gives them; nothing is changed. A unit that cannot be scanned makes its
/// form one that is not ready. EmlLangSilent when the person stops it.
void FindStrings(TContext& context, TScanMemory& memory, TSetupPlan& plan);

/// The rows as strings of a plan.
TSetupStrings StringsOf(const TFoundRows& rows);

/// Takes and leaves the rows as was decided. EBadInput where they are others than those.
void DecideRows(TFoundRows& rows, const TSetupStrings& decided, const std::string& fileName);

}  // namespace tml
