#pragma once

#include <functional>

#include "scan/Foundstring.h"
#include "scan/Replacement.h"
#include "tables/Table.h"

// One text gets one ID: that of the component where it holds the text, else that of the first row.

namespace tml {

/// Told how many of the strings of the component, or of the rows, are done. What it throws ends the work.
using TStepDone = std::function<void(int count)>;

/// For each string of the component, in its order: the first row with the same text (with case) takes
/// its ID, and its replacement is written anew.
void VerifyAgainstExisting(TmlFoundSourceStrings& found, const TTable& existing, const TCallStyle& style,
                           const TStepDone& done = {});

/// A row whose text equals that of an earlier row takes that row's ID and replacement.
void MergeDuplicates(TmlFoundSourceStrings& found, const TStepDone& done = {});

}  // namespace tml
