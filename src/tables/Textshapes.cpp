#include "tables/Textshapes.h"

#include <algorithm>
#include <array>

#include "base/Utf8.h"

namespace tml {
namespace {

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool IsUpper(char c) {
    return c >= 'A' && c <= 'Z';
}
constexpr bool IsLower(char c) {
    return c >= 'a' && c <= 'z';
}
constexpr bool IsWordChar(char c) {
    return IsDigit(c) || IsUpper(c) || IsLower(c) || c == '_';
}

/// Beyond ASCII what is no punctuation, symbol or space of the common blocks counts as a letter.
bool IsLetter(char32_t code) {
    if (code < 0x80) return IsUpper(static_cast<char>(code)) || IsLower(static_cast<char>(code));
    if (code < 0xC0) return code == 0xAA || code == 0xB5 || code == 0xBA;
    if (code == 0xD7 || code == 0xF7) return false;
    if (code >= 0x2000 && code < 0x2C00) return false;
    return !(code >= 0x3000 && code < 0x3040) && code != 0xFFFD && code != 0xFEFF;
}

bool HasBlank(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) <= ' '; });
}

/// ".txt", "*.txt" and "readme.txt": a short extension of letters and digits at the end.
bool HasExtension(std::string_view text) {
    const std::size_t dot = text.rfind('.');
    if (dot == std::string_view::npos) return false;
    const std::string_view extension = text.substr(dot + 1);
    return !extension.empty() && extension.size() <= 4 && IsLower(extension.front()) &&
           std::all_of(extension.begin(), extension.end(), [](char c) { return IsLower(c) || IsDigit(c); });
}

/// Where a word begins inside a word, as in "lblName" and "XMLFile", but not in "IDs".
bool IsHump(std::string_view text, std::size_t i) {
    if (!IsUpper(text[i])) return false;
    return IsLower(text[i - 1]) || (i + 2 < text.size() && IsLower(text[i + 1]) && IsLower(text[i + 2]));
}

}  // namespace

bool HasLetter(std::string_view text) {
    for (std::size_t pos = 0; pos < text.size();)
        if (IsLetter(DecodeCodePoint(text, pos))) return true;
    return false;
}

bool IsNumber(std::string_view text) {
    if (std::none_of(text.begin(), text.end(), IsDigit)) return false;
    return text.find_first_not_of("0123456789+-.,'%eE ") == std::string_view::npos &&
           (IsDigit(text.front()) || text.find_first_of("eE") != 0);
}

bool IsPunctuation(std::string_view text) {
    return !text.empty() && !HasLetter(text) && std::none_of(text.begin(), text.end(), IsDigit);
}

bool IsPath(std::string_view text) {
    if (text.size() > 2 && text[1] == ':' && (text[2] == '\\' || text[2] == '/')) return true;
    if (text.starts_with("\\\\") || text.starts_with("./") || text.starts_with("../")) return true;
    if (HasBlank(text)) return false;
    if (text.starts_with('/') && text.size() > 1 && IsWordChar(text[1])) return true;
    return text.starts_with("*.") || text.find('\\') != std::string_view::npos || HasExtension(text);
}

bool IsAddress(std::string_view text) {
    if (HasBlank(text)) return false;
    if (text.find("://") != std::string_view::npos || text.starts_with("www.")) return true;
    if (const std::size_t at = text.find('@'); at != std::string_view::npos && at > 0)
        return text.find('.', at) != std::string_view::npos;
    const bool hasDots = std::count(text.begin(), text.end(), '.') == 3;
    return hasDots && text.find_first_not_of("0123456789.:/") == std::string_view::npos;
}

bool LooksLikeIdentifier(std::string_view text) {
    if (text.empty() || IsDigit(text.front())) return false;
    bool isOdd = false;  // unlike a word of a language
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool isInnerDot = c == '.' && i > 0 && i + 1 < text.size();
        if (!IsWordChar(c) && !isInnerDot) return false;
        isOdd = isOdd || isInnerDot || c == '_' || IsDigit(c) || (i > 0 && IsHump(text, i));
    }
    return isOdd;
}

bool HasTypePrefix(std::string_view text) {
    const auto end = std::find_if_not(text.begin(), text.end(), IsLower);
    const auto prefix = static_cast<std::size_t>(end - text.begin());
    return prefix >= 2 && prefix <= 4 && prefix + 1 < text.size() && IsUpper(text[prefix]) &&
           IsLower(text[prefix + 1]) && LooksLikeIdentifier(text);
}

}  // namespace tml
