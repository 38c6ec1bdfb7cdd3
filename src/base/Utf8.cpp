#include "base/Utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include "base/Errors.h"

namespace tml {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// The code point at pos, which moves behind it; below 0 for bytes that are no valid sequence.
UChar32 NextCodePoint(std::string_view text, std::size_t& pos) {
    UChar32 codePoint = 0;
    U8_NEXT(text.data(), pos, text.size(), codePoint);
    return codePoint;
}

char32_t MapKeepingLength(char32_t codePoint, UChar32 (*map)(UChar32)) {
    const auto mapped = static_cast<char32_t>(map(static_cast<UChar32>(codePoint)));
    return U8_LENGTH(mapped) == U8_LENGTH(codePoint) ? mapped : codePoint;
}

// Objects, not functions, so that MapCase has them in line.
constexpr auto AsciiUpper = [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
};
constexpr auto AsciiLower = [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
};

constexpr std::size_t kBlock = 16;

/// Maps each character of a block; as its size is fixed, the compiler maps all of them at once.
template <typename TAsciiMap>
void MapBlock(char* block, TAsciiMap ascii) {
    for (std::size_t i = 0; i < kBlock; ++i)
        block[i] = ascii(block[i]);
}

template <typename TAsciiMap>
std::string MapCase(std::string_view text, TAsciiMap ascii, UChar32 (*map)(UChar32)) {
    std::string result(text);
    std::size_t done = 0;
    for (; done + kBlock <= result.size(); done += kBlock)
        MapBlock(result.data() + done, ascii);
    for (; done < result.size(); ++done)
        result[done] = ascii(result[done]);
    for (std::size_t pos = FindNonAscii(text, 0); pos < text.size(); pos = FindNonAscii(text, pos)) {
        const std::size_t begin = pos;
        const char32_t codePoint = DecodeCodePoint(text, pos);
        if (codePoint == kReplacement) continue;
        std::string mapped;
        AppendCodePoint(mapped, MapKeepingLength(codePoint, map));
        result.replace(begin, mapped.size(), mapped);
    }
    return result;
}

}  // namespace

char32_t DecodeCodePoint(std::string_view text, std::size_t& pos) {
    const std::size_t begin = pos;
    const UChar32 codePoint = NextCodePoint(text, pos);
    if (codePoint >= 0) return static_cast<char32_t>(codePoint);
    pos = begin + 1;
    return kReplacement;
}

void AppendCodePoint(std::string& text, char32_t codePoint) {
    std::array<char, U8_MAX_LENGTH> bytes{};
    std::size_t size = 0;
    U8_APPEND_UNSAFE(bytes.data(), size, codePoint);
    text.append(bytes.data(), size);
}

// Most texts have few such bytes, so eight are tested in one step.
std::size_t FindNonAscii(std::string_view text, std::size_t pos) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080U;
    for (std::uint64_t eight = 0; pos + sizeof eight <= text.size(); pos += sizeof eight) {
        std::memcpy(&eight, text.data() + pos, sizeof eight);
        if ((eight & kHighBits) != 0) break;
    }
    while (pos < text.size() && static_cast<unsigned char>(text[pos]) < 0x80)
        ++pos;
    return pos;
}

bool IsValidUtf8(std::string_view text) {
    for (std::size_t pos = FindNonAscii(text, 0); pos < text.size(); pos = FindNonAscii(text, pos))
        if (NextCodePoint(text, pos) < 0) return false;
    return true;
}

std::size_t CountCodePoints(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t pos = 0; pos < text.size(); ++count)
        DecodeCodePoint(text, pos);
    return count;
}

std::string_view LeftCodePoints(std::string_view text, std::size_t count) {
    std::size_t pos = 0;
    for (; pos < text.size() && count > 0; --count)
        DecodeCodePoint(text, pos);
    return text.substr(0, pos);
}

std::string UpperCase(std::string_view text) {
    return MapCase(text, AsciiUpper, u_toupper);
}

std::string LowerCase(std::string_view text) {
    return MapCase(text, AsciiLower, u_tolower);
}

std::string FoldCase(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    for (std::size_t pos = 0; pos < text.size();) {
        if (static_cast<unsigned char>(text[pos]) < 0x80) {
            folded += AsciiLower(text[pos++]);
            continue;
        }
        const auto codePoint = static_cast<UChar32>(DecodeCodePoint(text, pos));
        AppendCodePoint(folded, static_cast<char32_t>(u_foldCase(codePoint, U_FOLD_CASE_DEFAULT)));
    }
    return folded;
}

int CompareText(std::string_view left, std::string_view right) {
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (((left[i] | right[i]) & 0x80) != 0) return UpperCase(left).compare(UpperCase(right));
        const int difference = AsciiUpper(left[i]) - AsciiUpper(right[i]);
        if (difference != 0) return difference;
    }
    return left.size() == right.size() ? 0 : (left.size() < right.size() ? -1 : 1);
}

bool SameText(std::string_view left, std::string_view right) {
    // The case mapping keeps lengths.
    return left.size() == right.size() && CompareText(left, right) == 0;
}

std::string_view Trim(std::string_view text) {
    const auto blank = [](char c) { return static_cast<unsigned char>(c) <= ' '; };
    while (!text.empty() && blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && blank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool Contains(std::string_view text, std::string_view part) {
    return !part.empty() && text.find(part) != std::string_view::npos;
}

int ToInteger(std::string_view text) {
    std::string_view digits = text;
    if (digits.size() > 1 && digits.front() == '+' && digits[1] != '-') digits.remove_prefix(1);
    int value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc{} || end != digits.data() + digits.size())
        throw EConvertError("'" + std::string(text) + "' is not a valid integer value");
    return value;
}

}  // namespace tml
