#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tml {

/// A line of a translation table: fields separated by the component's delimiter (one character, UTF-8).
/// The first is the entry's key, one value a language follows. A field that holds the delimiter or a line
/// break is stored escaped, so that a raw line can be split at the delimiter; any other field stands as it
/// is.

/// All fields of a line, decoded, and the line of such fields. An empty field counts; so a line has at
/// least one.
std::vector<std::string> SplitFields(std::string_view line, std::string_view delimiter);
/// The same into a list that is there, which costs less for many lines.
void SplitFields(std::string_view line, std::string_view delimiter, std::vector<std::string>& fields);
std::string JoinFields(const std::vector<std::string_view>& fields, std::string_view delimiter);

}  // namespace tml
