#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "base/Inidocument.h"

namespace tml {

/// The text of a registry file:
///     # a comment
///     [\Software\Company\Product]
///     "Name" = string "text"
///     "Count" = integer 5
///     "Switch" = bool true
/// Names and texts are quoted; in them \" \\ \n \r \t and \xHH stand for what cannot stand there itself.

using TRegistryValue = std::variant<std::string, int, bool>;

class TRegistryText {
  public:
    /// Never fails; see BrokenLine.
    explicit TRegistryText(std::string_view text);

    /// Keys with or without a leading "\"; keys and names without regard to case.
    std::optional<TRegistryValue> Find(std::string_view key, std::string_view name) const;
    /// value: type and text as they stand in the file.
    void Set(std::string_view key, std::string_view name, std::string_view value);
    std::string Text() const { return document_.Text(); }

    /// The first line (1-based) that begins like a key or a value and is none, 0 without one.
    int BrokenLine() const { return document_.BrokenLine(); }

  private:
    TIniDocument document_;
};

std::string QuoteRegistryText(std::string_view text);

}  // namespace tml
