#pragma once

#include "core/Settings.h"
#include "scan/Scan.h"

namespace tml {

/// A scan with the user's settings; text, file and component are still to be filled in. common may be
/// nullptr.
TScanInput ScanInputOf(const TSettingValues& settings, ICommonLibrary* common);

}  // namespace tml
