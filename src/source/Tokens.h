#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tml {

class TSourceText;

enum class TTokenKind : std::uint8_t {
    Name,  ///< identifier or keyword
    Number,
    Symbol,     ///< one sign, or one of := .. :: ->
    Literal,    ///< see TSourceText::Literals
    Character,  ///< a C++ character constant, a Pascal character code, a text in assembler quotes
    Comment,
    Directive,  ///< a Pascal directive
    Stray,      ///< an unterminated literal, up to the end of its line
};

/// Byte offsets, 0-based, End exclusive.
struct TToken {
    TTokenKind Kind = TTokenKind::Symbol;
    bool OnDirectiveLine = false;  ///< on a C++ preprocessor line
    std::size_t Begin = 0;
    std::size_t End = 0;
    std::size_t Index = 0;  ///< of a Literal in Literals(), of a Comment or Directive in Comments()
};

/// All tokens of the text, in order; between them are blanks only (and the back slashes of continued
/// lines). Agrees with the comments and literals of the source, which keeps them: see its Tokens().
std::vector<TToken> Tokenize(const TSourceText& source);

}  // namespace tml
