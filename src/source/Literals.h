#pragma once

#include <string>
#include <string_view>

#include "source/Sourcetext.h"

namespace tml {

/// The literal's text in UTF-8: delimiters taken away, doublings and escapes decoded, pieces joined.
std::string DecodeLiteral(const TSourceText& source, const TLiteral& literal);

/// The text as it stands between the delimiters of a literal of the language: a Pascal delimiter is
/// doubled and a control character leaves the quotes ('#13'), C++ writes escapes.
std::string EncodeLiteralBody(std::string_view text, const TLanguage& language);

}  // namespace tml
