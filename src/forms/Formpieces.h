#pragma once

#include <string>
#include <string_view>

#include "forms/Formtextwriter.h"

namespace tml {

/// Writes one string as quoted pieces and character codes.
class TFormPieces {
  public:
    /// lineBreak is what separates the pieces of a long string: a line end and the deeper indent.
    TFormPieces(const TFormFile& file, const TFormTextStyle& style, std::string lineBreak);

    /// wide is UTF-16, little endian. What the file's encoding cannot hold is written as character codes.
    std::string Write(std::string_view wide);

  private:
    void Put(char32_t unit);
    /// False when the file's encoding cannot hold it.
    bool PutRaw(char32_t codePoint);
    void PutCode(char32_t code);
    void Open();
    void Close();

    const TFormFile& file_;
    const TFormTextStyle& style_;
    std::string lineBreak_;
    std::string text_;
    bool inQuotes_ = false;
};

}  // namespace tml
