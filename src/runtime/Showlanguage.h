#pragma once

#include "platform/Mlruntime.h"
#include "tables/Formsection.h"

namespace tml {

/// See TmlCustomLang::ShowLanguage.
void ShowTexts(TmlCustomLang& lang, int from, int to);

/// What shows the texts of a language (1-based place) shows those that have come in their place: the same
/// entries in the same order, with new ones behind them.
void ShowChangedTexts(TmlCustomLang& lang, const TLangTexts& before, const TLangTexts& after, int place);

}  // namespace tml
