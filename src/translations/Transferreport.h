#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/Dialogs.h"
#include "tables/Texttransfer.h"

namespace tml {

/// What a command with a translation file has to tell of each form, by name.
using TFormReports = std::vector<std::pair<std::string, TTransferReport>>;

/// The messages on one form, each in one line: notes, what was added, dropped, overwritten, not known, kept
/// and put in doubt. Empty where nobody needs to know more.
TStringList LinesOf(const TTransferReport& report);

/// Tells the person in one message, with the names of forms that are changed and not saved; nothing where
/// there is nothing to tell.
void ShowReports(IDialogs& dialogs, const TFormReports& reports, const TStringList& unsaved = {});

}  // namespace tml
