#pragma once

#include <string>

#include "tables/States.h"

namespace tml {

/// An entry after a person has written the text in the language at a place (1-based). Where it is the base
/// text, the translations that equal the former one follow and the others are in doubt. hasStates: see
/// HasStates.
TTableEntry WithText(TTableEntry entry, int place, const std::string& text, bool hasStates);

/// An entry after a person has said in which state its translation at a place (2 or more) is: one that is
/// stale or touched was made for the present base text as far as anybody knows. As it was where the text
/// cannot be in that state: an empty one is missing, one that differs from the base text is not.
TTableEntry WithState(TTableEntry entry, int place, TTextState state);

/// The text with its line breaks (LF, CR or CR LF) as the entry has them: CR LF where one of its values holds
/// it, else LF.
std::string WithLineBreaksOf(const TTableEntry& entry, const std::string& text);

}  // namespace tml
