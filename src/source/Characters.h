#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/Encodings.h"

namespace tml {

/// Puts a text (UTF-8) together of what stands in the source and of characters given by number.
class TCharacters {
  public:
    void Add(std::string_view text);
    /// A byte of a character; those that follow one another are decoded together.
    void AddByte(unsigned char byte, const TByteEncodings& encodings);
    /// A code unit; two halves of a surrogate pair become one character.
    void AddUnit(std::uint32_t unit);
    /// A Pascal character code: #13, #$0D, #%1101, #&15 or ^M. Up to 255 it is a byte, but for a hexadecimal
    /// number of more than two digits.
    void AddPascalCode(std::string_view code, const TByteEncodings& encodings);
    std::string Take();

  private:
    void EndNumbers();

    std::string text_;
    std::uint32_t high_ = 0;
    std::string bytes_;
    const TByteEncodings* encodings_ = nullptr;  ///< of bytes_
};

}  // namespace tml
