#pragma once

#include <vector>

#include "tables/Table.h"
#include "tables/Translationfile.h"

namespace tml {

/// What of a localization component travels through translation files.
struct TLangTexts {
    TStringList Languages;       ///< base first
    std::vector<TTable> Tables;  ///< one of each kind, in the order of their ordinals
    std::vector<TFileExtended> Extended;
};

/// The section of a file: every entry with a field a language.
TFormSection ToSection(const TFormAddress& address, TLangTexts texts);
TLangTexts FromSection(const TFormSection& section);

}  // namespace tml
