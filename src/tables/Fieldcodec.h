#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tml {

/// A line of a translation table: fields separated by the component's delimiter (one character, UTF-8).
/// The first is the entry's identifier, one value a language follows. A field that holds the delimiter or
/// a line break is stored escaped, so that a raw line can be split at the delimiter; any other field
/// stands as it is.

/// The field as it is stored, and back.
std::string EncodeField(std::string_view value, std::string_view delimiter);
std::string DecodeField(std::string_view field, std::string_view delimiter);

/// The n-th field (1-based) of a line, as stored; "" behind the last one. An empty field counts.
std::string ExtractWord(int n, std::string_view line, std::string_view delimiter);

/// All fields of a line, decoded, and the line of such fields.
std::vector<std::string> SplitFields(std::string_view line, std::string_view delimiter);
std::string JoinFields(const std::vector<std::string>& fields, std::string_view delimiter);

}  // namespace tml
