#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tml {

/// What marks a text file as UTF-8 at its beginning.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

enum TFormCharClass : std::uint8_t { kOtherChar = 0, kNameStart = 1, kDigit = 2, kHexDigit = 4, kBlank = 8 };

/// What a byte can be in a text form. Bytes above 127 belong to names in other scripts.
constexpr std::array<std::uint8_t, 256> kFormChars = [] {
    std::array<std::uint8_t, 256> table{};
    for (int c = 0; c < 256; ++c) {
        const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        const bool digit = c >= '0' && c <= '9';
        const bool hex = digit || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
        std::uint8_t classes = kOtherChar;
        if (letter || c == '_' || c >= 0x80) classes |= kNameStart;
        if (digit) classes |= kDigit;
        if (hex) classes |= kHexDigit;
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v') classes |= kBlank;
        table[static_cast<std::size_t>(c)] = classes;
    }
    return table;
}();

constexpr bool IsFormChar(char c, int classes) {
    return (kFormChars[static_cast<unsigned char>(c)] & classes) != 0;
}

/// True for a name that may stand without quotes: parts of letters, digits and "_", joined by dots.
bool IsFormName(std::string_view text);

/// True when every byte is below 128.
bool IsAscii(std::string_view text);

/// Equality without regard to the case of ASCII letters; lower must be in lower case.
constexpr bool IsKeyword(std::string_view text, std::string_view lower) {
    if (text.size() != lower.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if ((c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c) != lower[i]) return false;
    }
    return true;
}

}  // namespace tml
