#pragma once

#include "base/Edits.h"
#include "scan/Scan.h"

namespace tml {

/// The edits that put each row's call in its literal's place and enclose the lines of rows marked to
/// ignore in tag lines. input is that of the scan which found the rows.
TEdits Rewrite(const TmlFoundSourceStrings& kept, const TScanInput& input);

/// Checks that the edits change nothing else and that every row is found as a call with its ID in the
/// new text; EBadInput with file and line (of the old text) where not.
void ProveRewrite(const TmlFoundSourceStrings& kept, const TScanInput& input, const TEdits& edits);

}  // namespace tml
