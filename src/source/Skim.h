#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "source/Sourcetext.h"

namespace tml {

/// What one quick pass over a text finds. The pass stops at quotes and at what may open a comment only;
/// all that lies between is told apart by Tokenize, and only where somebody asks for it.
struct TSkim {
    std::vector<TComment> Comments;
    std::vector<TLiteral> Literals;
    bool CommentsNest = false;
};

/// Unterminated literals end with their line and are left out; an unterminated comment reaches to the end.
TSkim SkimPascal(std::string_view text);
TSkim SkimCpp(std::string_view text);

/// Where a piece of text in quotes ends.
struct TQuoted {
    std::size_t BodyBegin = 0;
    std::size_t BodyEnd = 0;
    std::size_t End = 0;
    bool Closed = false;  ///< when not, End is the end of the line
};

/// The Pascal literal on one line whose first apostrophe is at open.
TQuoted ReadPascalQuotes(std::string_view text, std::size_t open);
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
