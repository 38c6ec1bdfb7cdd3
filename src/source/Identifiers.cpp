#include "source/Identifiers.h"

#include <algorithm>

#include "base/Utf8.h"
#include "source/Charclass.h"

namespace tml {
namespace {

/// With those that open a section of a class; each between blanks.
constexpr std::string_view kReservedInPascal =
    " AND ARRAY AS ASM BEGIN CASE CLASS CONST CONSTRUCTOR DESTRUCTOR DISPINTERFACE DIV DO DOWNTO ELSE END"
    " EXCEPT EXPORTS FILE FINALIZATION FINALLY FOR FUNCTION GOTO IF IMPLEMENTATION IN INHERITED"
    " INITIALIZATION INLINE INTERFACE IS LABEL LIBRARY MOD NIL NOT OBJECT OF OPERATOR OR PACKED PRIVATE"
    " PROCEDURE PROGRAM PROPERTY PROTECTED PUBLIC PUBLISHED RAISE RECORD REPEAT RESOURCESTRING SET SHL SHR"
    " STRICT STRING THEN THREADVAR TO TRY TYPE UNIT UNTIL USES VAR WHILE WITH XOR ";
constexpr std::string_view kReservedInCpp =
    " alignas alignof and and_eq asm auto bitand bitor bool break case catch char class compl const"
    " const_cast constexpr continue decltype default delete do double dynamic_cast else enum explicit"
    " export extern false float for friend goto if inline int long mutable namespace new noexcept not"
    " not_eq nullptr operator or or_eq private protected public register reinterpret_cast return short"
    " signed sizeof static static_assert static_cast struct switch template this thread_local throw true"
    " try typedef typeid typename union unsigned using virtual void volatile wchar_t while xor xor_eq ";

bool IsReserved(std::string_view name, const TLanguage& language) {
    const std::string word = ' ' + (language.IsCPPSource ? std::string(name) : UpperCase(name)) + ' ';
    return (language.IsCPPSource ? kReservedInCpp : kReservedInPascal).find(word) != std::string_view::npos;
}

}  // namespace

bool IsIdentifier(std::string_view name, const TLanguage& language) {
    return !name.empty() && IsNameStart(name.front()) && std::all_of(name.begin(), name.end(), IsNameChar) &&
           !IsReserved(name, language);
}

}  // namespace tml
