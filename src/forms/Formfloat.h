#pragma once

#include <string>
#include <string_view>

#include "forms/Formsink.h"

namespace tml {

/// Floating point values of forms. The exact conversions need a long double with the 64 bits of the
/// extended type; where the compiler has a shorter one, an extended value is read as its neighbour there.

/// The kind that a number in a text stands for by its suffix ("1.5s").
TFormFloatKind FloatKindOf(std::string_view text);

/// The little-endian bytes that a number in a text (suffix included) gives in a binary, kind by suffix.
std::string FloatBytes(std::string_view text);

/// The value of any kind as the bytes of an extended one.
std::string ExtendedBytes(const TFormFloat& value);

/// An extended value with 21 digits, 29 characters wide: " 1.50000000000000000000E+0000".
std::string LongFloatText(std::string_view extendedBytes);

/// The shortest decimal text that stands for the value within its kind, without suffix.
std::string ShortFloatText(const TFormFloat& value);

/// The suffix of the kind, "" for extended and double.
std::string_view FloatSuffix(TFormFloatKind kind);

}  // namespace tml
