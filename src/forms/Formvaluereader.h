#pragma once

#include <optional>

#include "forms/Formfile.h"
#include "forms/Formlexer.h"
#include "forms/Formsink.h"
#include "forms/Formstrings.h"

namespace tml {

/// Reads property values of a text form from a lexer that stands on their first token, and leaves it on
/// the token behind them. Without a sink it only checks and passes over.
class TTextValueReader {
  public:
    TTextValueReader(const TFormFile& file, TFormLexer& lexer, TFormSink* sink, IFormPlaces* places);

    /// depth counts the components, lists and collections around the value. Gives the end of the value.
    std::size_t Read(int depth);
    /// Where the last token that was read ended.
    std::size_t LastEnd() const { return lastEnd_; }
    /// Reads "[n]" where the lexer stands on one.
    std::optional<int> ReadPosition();
    /// Reads "Name =" and gives the name's place; a quoted name includes its quotes.
    TFormSpan ReadPropertyName();

  private:
    void ReadAny(int depth);
    void ReadString();
    void ReadInteger();
    void ReadFloat();
    void ReadSet();
    void ReadList(int depth);
    void ReadCollection(int depth);
    void ReadItem(int depth);
    void ReadBinary();
    void Advance();

    const TFormFile& file_;
    TFormLexer& lexer_;
    TFormSink* sink_;
    IFormPlaces* places_;
    std::size_t lastEnd_ = 0;
    TFormStringRuns runs_;
};

/// The name in the bytes of a property name: a quoted one without its quotes.
std::string_view UnquotedName(std::string_view name);

}  // namespace tml
