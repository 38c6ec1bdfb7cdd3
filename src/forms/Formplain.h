#pragma once

#include <string_view>

#include "forms/Formvalue.h"

namespace tml {

/// Reads a value of a text form that is written as most are, straight from its bytes: a small number, a word,
/// a text in one piece, a list of strings; all of ASCII. The value is new. False, with the value in any
/// state, for every other one, which may be as simple; text is one that the parser has let pass.
bool ReadPlain(std::string_view text, TFormValue& value);

}  // namespace tml
