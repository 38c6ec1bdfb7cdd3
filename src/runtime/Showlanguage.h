#pragma once

#include <vector>

#include "platform/Mlruntime.h"
#include "runtime/Formparts.h"
#include "tables/Formsection.h"

namespace tml {

/// See TmlCustomLang::ShowLanguage.
void ShowTexts(TmlCustomLang& lang, int from, int to);

/// The components of a form as they read in a language of its localization component (1-based place); the
/// form does not change.
std::vector<TFormPart> PartsInLanguage(const TFormParts& parts, TmlCustomLang& lang, int language);

/// What shows the texts of a language (1-based place) shows those that have come in their place: the same
/// entries in the same order, with new ones behind them.
void ShowChangedTexts(TmlCustomLang& lang, const TLangTexts& before, const TLangTexts& after, int place);

}  // namespace tml
