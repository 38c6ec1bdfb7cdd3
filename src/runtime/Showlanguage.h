#pragma once

#include "platform/Mlruntime.h"

namespace tml {

/// See TmlCustomLang::ShowLanguage.
void ShowTexts(TmlCustomLang& lang, int from, int to);

}  // namespace tml
