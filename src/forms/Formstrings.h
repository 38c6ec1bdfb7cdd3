#pragma once

#include <string>
#include <string_view>

#include "base/Encodings.h"
#include "forms/Formfile.h"
#include "forms/Formsink.h"

namespace tml {

/// The string as UTF-8; what cannot be read gives U+FFFD. The encoding of ANSI bytes is asked for only
/// when there are bytes above 127.
std::string ToUtf8(const TFormString& value, const TFormFile& file);

/// Appends the string as UTF-16, little endian.
void AppendWide(const TFormString& value, const TFormFile& file, std::string& wide);

/// Appends a code point as UTF-16, little endian.
void AppendWide(char32_t codePoint, std::string& wide);

/// A unit of UTF-16, little endian; index in units.
inline char32_t WideUnit(std::string_view wide, std::size_t index) {
    const auto low = static_cast<unsigned char>(wide[2 * index]);
    const auto high = static_cast<unsigned char>(wide[2 * index + 1]);
    return static_cast<char32_t>(low | (high << 8));
}

constexpr bool IsSurrogate(char32_t unit) {
    return (unit & 0xF800) == 0xD800;
}

/// True when the unit and the one behind it stand for one code point.
inline bool IsPairAt(std::string_view wide, std::size_t index) {
    return 2 * index + 3 < wide.size() && (WideUnit(wide, index) & 0xFC00) == 0xD800 &&
           (WideUnit(wide, index + 1) & 0xFC00) == 0xDC00;
}

/// The code point of a pair.
inline char32_t PairAt(std::string_view wide, std::size_t index) {
    return 0x10000 + ((WideUnit(wide, index) - 0xD800) << 10) + (WideUnit(wide, index + 1) - 0xDC00);
}

/// Encodes UTF-8 text in the file's encoding; throws EBadInput when that cannot hold it.
std::string EncodeFor(const TFormFile& file, std::string_view text);

/// Decodes bytes of the file's names.
std::string DecodeFrom(const TFormFile& file, std::string_view bytes);

/// The content of string tokens of a text form, joined. Stays bytes of the file until a code above 127
/// makes it wide.
class TFormStringRuns {
  public:
    explicit TFormStringRuns(const TFormFile& file) : file_(file) {}
    void Clear();
    /// Adds the content of a string token as the lexer gave it.
    void Append(std::string_view token);
    /// Valid until the next call.
    TFormString String() const;

  private:
    void AppendBytes(std::string_view bytes);
    void AppendCode(char32_t code);

    const TFormFile& file_;
    bool isWide_ = false;
    std::string bytes_;
};

}  // namespace tml
