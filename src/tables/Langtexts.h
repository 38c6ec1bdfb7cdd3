#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/Stringlist.h"
#include "tables/Table.h"

namespace tml {

/// The texts of a property that a component's ExtendedTranslations name, one a language.
struct TExtendedItem {
    std::string Component;
    std::string Property;
    std::vector<std::string> Values;

    bool operator==(const TExtendedItem&) const = default;
};

/// What of a localization component travels through translation files.
struct TLangTexts {
    TStringList Languages;       ///< base first
    std::vector<TTable> Tables;  ///< one of each kind, in the order of their ordinals
    std::vector<TExtendedItem> Extended;
};

/// Empty tables with these languages.
TLangTexts TextsIn(TStringList languages);

/// Passes every translation of which something is on record, in the order of tables, entries and languages;
/// place is its language's (1-based).
using TMarkedText =
    std::function<void(TStringsType type, const std::string& key, int place, const TTableValue& value)>;
void ForEachMarked(const TLangTexts& texts, const TMarkedText& pass);

/// Puts on record what is known of the first entry with the key; nothing where there is none.
void SetMark(TLangTexts& texts, TStringsType type, const std::string& key, int place, TValueMark mark,
             const std::string& former);

}  // namespace tml
