#pragma once

#include <memory>

#include "base/Stringlist.h"
#include "platform/Mlruntime.h"
#include "tables/Formsection.h"

namespace tml {

/// The languages that hold for a component: those of its dispatcher where it is linked to one.
class TEffectiveLanguages {
  public:
    explicit TEffectiveLanguages(TmlCustomLang& lang) : lang_(lang), dispatcher_(lang.GetDispatcher()) {}

    ILanguages& Get() const {
        return dispatcher_ != nullptr ? static_cast<ILanguages&>(*dispatcher_) : lang_;
    }
    /// nullptr for a component that has its own.
    const std::shared_ptr<TmlLangDispatcher>& Dispatcher() const { return dispatcher_; }

  private:
    TmlCustomLang& lang_;
    std::shared_ptr<TmlLangDispatcher> dispatcher_;
};

/// What a component would hold after an update, and notes on what could not be read.
struct TBuiltTexts {
    TLangTexts Texts;
    TStringList Notes;
};
TBuiltTexts BuiltTexts(TmlCustomLang& lang);

/// What a component holds, as it stands.
TLangTexts ReadTexts(TmlCustomLang& lang);
/// Writes tables and extended translations where they differ.
void WriteTexts(TmlCustomLang& lang, const TLangTexts& texts);

/// See TmlCustomLang::BuildList.
TStringList BuildTables(TmlCustomLang& lang);

/// See TmlCustomLang::ClearTranslations.
void ClearTables(TmlCustomLang& lang);

}  // namespace tml
