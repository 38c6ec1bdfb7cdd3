#pragma once

#include <string>

#include "tables/Dictionary.h"

namespace tml {

/// EBadInput for the name of a binary dictionary, which the tool reads whose it is.
void ExpectDix(const std::string& fileName);

/// A dictionary from the bytes of a .dix file (docs/dictionary.md). EBadInput, with the line, for what is no
/// such file. One of a newer version is read, too: NewerVersionNote has to be told then.
TDictionary ReadDix(const std::string& bytes, const std::string& fileName);

/// What a person has to know of a dictionary that is of a newer version; "" for one that is not.
std::string NewerVersionNote(const TDictionary& dictionary, const std::string& fileName);

/// The bytes of a .dix file, from which ReadDix gives the same dictionary. EBadInput for a dictionary of a
/// newer version.
std::string WriteDix(const TDictionary& dictionary, const std::string& fileName);

}  // namespace tml
