#pragma once

#include <set>
#include <string>
#include <string_view>

#include "source/Skim.h"

namespace tml {

TSkim SkimCpp(std::string_view text);

/// The C++ string or character constant (without prefix) that opens at open.
TQuoted ReadCppQuotes(std::string_view text, std::size_t open);
/// Reads the C++ raw strings of a text in their order; remembers which closers do not come any more, so
/// that openers without an end are not each searched to the end of the text.
class TRawStrings {
  public:
    explicit TRawStrings(std::string_view text) : text_(text) {}
    /// The raw string whose quote (behind the R) is at open; not Closed when it is none.
    TQuoted Read(std::size_t open);

  private:
    std::string_view text_;
    std::set<std::string> missing_;
};
/// True when the prefix in front of a quote makes it a raw string.
bool IsRawPrefix(std::string_view prefix);
/// The string prefix (L, u8R ...) that ends at the quote at open, often empty.
std::string_view PrefixBefore(std::string_view text, std::size_t open);

/// The end of a C++ comment that opens at begin; the end of the text when it has no closer.
std::size_t CppCommentEnd(std::string_view text, std::size_t begin);
/// The end of the logical line that holds pos: line ends behind a back slash do not count.
std::size_t LogicalLineEnd(std::string_view text, std::size_t pos);

}  // namespace tml
