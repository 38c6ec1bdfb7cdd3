#pragma once

#include <string>
#include <vector>

#include "forms/Formvalue.h"
#include "tables/Tablekinds.h"

namespace tml {

/// The values of an entry that a change of language is about.
struct TTextChange {
    TStringsType Table = TStringsType::stOtherStrings;
    std::string Path;  ///< of the property, as behind the component in a key
    std::string From;  ///< what the property shows as long as nobody has changed it
    std::string To;
    std::string Base;  ///< of the base language
};

/// Gives the properties of a component the texts of another language, in the order of the changes. First all
/// look whether their property shows what it should: one that shows something else is the person's and stays,
/// as does one that is not held, and items in a layout that cannot hold the text.
void SetTexts(std::vector<TFormProperty>& properties, const std::vector<TTextChange>& changes);

}  // namespace tml
