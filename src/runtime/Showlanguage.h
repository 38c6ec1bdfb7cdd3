#pragma once

#include <string>
#include <vector>

#include "platform/Mlruntime.h"
#include "runtime/Formparts.h"
#include "tables/Langtexts.h"

namespace tml {

/// See TmlCustomLang::ShowLanguage.
void ShowTexts(TmlCustomLang& lang, int from, int to);

/// The texts of a localization component: those that the form shows (From, a 1-based place of Before) and
/// those that come in their place (To, of After). Entries as in ShowChangedTexts.
struct TShownTexts {
    std::string Path;  ///< of the frame that the component stands on, "" for the form
    const TLangTexts* Before = nullptr;
    const TLangTexts* After = nullptr;
    int From = 1;
    int To = 1;
};

/// The components of a form as they read with other texts, each given by what comes last; the form does not
/// change.
std::vector<TFormPart> PartsShowing(const TFormParts& parts, const std::vector<TShownTexts>& texts);

/// What shows the texts of a language (1-based place) shows those that have come in their place: the same
/// entries in the same order, with new ones behind them.
void ShowChangedTexts(TmlCustomLang& lang, const TLangTexts& before, const TLangTexts& after, int place);

}  // namespace tml
