#pragma once

#include <memory>

#include "base/Stringlist.h"
#include "platform/Formtexts.h"
#include "platform/Mlruntime.h"
#include "tables/Langtexts.h"

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

/// Writes texts that a person has changed; what the form shows of them in its active language follows. Before
/// and after have the same tables and extended translations, with the entries of before in their order and
/// new ones behind them, but for the IDs of "Strings".
void EditTexts(TmlCustomLang& lang, const TLangTexts& before, const TLangTexts& after);

/// See TmlCustomLang::BuildList.
TStringList BuildTables(TmlCustomLang& lang);

/// See IFormTexts.
bool AreTablesBuilt(TmlCustomLang& lang);
TTextsOfForm TextsOfForm(TmlCustomLang& lang);

/// See TmlCustomLang::ClearTranslations.
void ClearTables(TmlCustomLang& lang);

}  // namespace tml
