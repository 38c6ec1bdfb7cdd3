#pragma once

#include <string_view>

namespace tml {

// The names that stand for character pointers where no text that is read declares them. No case counts in
// Pascal.

/// "PChar", "LPCTSTR" and the like, in Pascal any "P...char"; "Pointer", to which a literal may be assigned.
bool IsPointerType(std::string_view name, bool isCpp);
/// A type of single characters: a pointer to it is a character pointer.
bool IsCharacterType(std::string_view name, bool isCpp);
/// A string type of Pascal.
bool IsStringType(std::string_view name);
/// A field whose name says that it is one: lpszClassName.
bool IsPointerField(std::string_view name);

/// A routine whose literals are character pointers.
struct TPointerRoutine {
    std::string_view Name;
    std::string_view NotWith;  ///< a Pascal unit whose routine of that name takes strings
};
/// The routine of a name, called bare or behind a qualifier; nullptr for any other.
const TPointerRoutine* FindPointerRoutine(std::string_view qualifier, std::string_view name, bool isCpp);

}  // namespace tml
