#pragma once

#include <bitset>
#include <string>

#include "tables/Langtexts.h"

namespace tml {

/// The kinds of properties that are saved: tables by their ordinals, and the extended translations.
struct TPropertyKinds {
    std::bitset<kTableKinds.size()> Tables;
    bool Extended = false;

    bool None() const { return Tables.none() && !Extended; }
};

/// The name by which a person knows the extended translations; a table is known by its property.
inline constexpr const char* kExtendedTranslations = "ExtendedTranslations";

/// The names of all kinds, the tables' in the order of their ordinals.
TStringList PropertyKindNames();
/// The kinds with these names, in any letter case but that of kExtendedTranslations; unknown ones are passed
/// over.
TPropertyKinds PropertyKindsOf(const TStringList& names);

/// What a file holds of a form after the chosen kinds of the form have been put in the place of its own. The
/// languages are the form's, then those that only the file has; a new one begins with the base texts.
TLangTexts WithKindsOf(const TLangTexts& form, const TLangTexts& file, const TPropertyKinds& kinds);

/// Entries of the chosen kinds.
int CountEntries(const TLangTexts& texts, const TPropertyKinds& kinds);

}  // namespace tml
