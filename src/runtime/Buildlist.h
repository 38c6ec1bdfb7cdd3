#pragma once

#include "base/Stringlist.h"
#include "platform/Mlruntime.h"

namespace tml {

/// See TmlCustomLang::BuildList.
TStringList BuildTables(TmlCustomLang& lang);

/// See TmlCustomLang::ClearTranslations.
void ClearTables(TmlCustomLang& lang);

}  // namespace tml
