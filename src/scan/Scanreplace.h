#pragma once

#include <string>

#include "core/Context.h"
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
