#pragma once

#include <functional>
#include <string>

#include "core/Context.h"
#include "scan/Foundrows.h"
#include "scan/Scanmemory.h"

namespace tml {

/// Replaces the hard-coded strings of a unit by calls on the localization component of the row's form,
/// which is inserted where there is none: scan, review by the person, then the changes, all as one step
/// of undo. unitFile is "" for the form's own unit. constSection takes the constants of the unit's const
/// sections instead, which a generated routine then sets. False when nothing was changed; then nothing is
/// left of an inserted component either. Only the block of the unit's code editor is scanned while the
/// memory's ScanMode says so. EBadInput when the changes cannot be made as they should.
bool DoScanReplace(TContext& context, TScanMemory& memory, TFormRow& row, const std::string& unitFile = {},
                   bool constSection = false);

/// Stands in for the review of a unit: takes rows and leaves others out. False changes nothing.
using TReviewRows = std::function<bool(TFoundRows& rows)>;
/// The same on the form's own unit, as a part of a command over many forms: no unit is shown, no progress,
/// no message; review is not asked where nothing is found. Gives how many strings are calls now.
int ReplaceReviewed(TContext& context, TScanMemory& memory, TFormRow& row, const TReviewRows& review);

/// What is said when the changes are made.
std::string DoneMessage(bool constSection);

/// The command "With form...": the units of the selected rows. Several are a series in the list's order, each
/// a step of undo of its own; one that fails keeps no other back.
void SourceWithForm(TContext& context, TScanMemory& memory);
/// The command "Without form...": chosen units, in the same way.
void SourceWithoutForm(TContext& context, TScanMemory& memory);
/// The same two commands for the const sections.
void ConstWithForm(TContext& context, TScanMemory& memory);
void ConstWithoutForm(TContext& context, TScanMemory& memory);

}  // namespace tml
