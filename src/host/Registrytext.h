#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tml {

/// The text of a registry file:
///     # a comment
///     [\Software\Company\Product]
///     "Name" = string "text"
///     "Count" = integer 5
///     "Switch" = bool true
/// Names and texts are quoted; in them \" \\ \n \r \t and \xHH stand for what cannot stand there itself.

using TRegistryValue = std::variant<std::string, int, bool>;

struct TRegistryLine {
    enum class TKind { Other, Key, Value, Broken };
    TKind Kind = TKind::Other;
    std::string Text;  ///< as it stands, its line end included
    std::string Name;  ///< of a key (without a leading "\") or value
    TRegistryValue Value;
};

/// One entry a line; never fails.
std::vector<TRegistryLine> ParseRegistryText(std::string_view text);

/// Index of the line with the value (names without regard to case), none without it.
std::optional<std::size_t> FindRegistryValue(const std::vector<TRegistryLine>& lines, std::string_view key,
                                             std::string_view name);

/// The text with the value set, in its place or behind the last line of its key. value: type and text as
/// QuoteRegistryText and its like give them.
std::string SetRegistryValue(const std::vector<TRegistryLine>& lines, std::string_view key,
                             std::string_view name, std::string_view value);

std::string QuoteRegistryText(std::string_view text);

}  // namespace tml
