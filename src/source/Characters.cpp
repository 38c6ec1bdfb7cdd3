#include "source/Characters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "base/Utf8.h"

namespace tml {
namespace {

struct TBase {
    char Sign;
    int Base;
};
constexpr std::array kBases{TBase{'$', 16}, TBase{'%', 2}, TBase{'&', 8}};
constexpr std::size_t kByteDigits = 2;

std::string Decoded(const std::string& bytes, const TByteEncodings& encodings) {
    for (const std::string& encoding : encodings)
        if (std::string text; Decode({encoding, ""}, bytes, text)) return text;
    std::string text;
    for (const char c : bytes)
        AppendCodePoint(text, static_cast<unsigned char>(c));
    return text;
}

}  // namespace

void TCharacters::Add(std::string_view text) {
    if (text.empty()) return;
    EndNumbers();
    text_ += text;
}

void TCharacters::AddByte(unsigned char byte, const TByteEncodings& encodings) {
    if (bytes_.empty() || encodings_ != &encodings) EndNumbers();
    high_ = 0;
    bytes_ += static_cast<char>(byte);
    encodings_ = &encodings;
}

void TCharacters::AddUnit(std::uint32_t unit) {
    const std::uint32_t high = bytes_.empty() ? high_ : 0;
    EndNumbers();
    const bool isLow = unit >= 0xDC00 && unit <= 0xDFFF;
    const bool isHigh = unit >= 0xD800 && unit <= 0xDBFF;
    if (isLow && high != 0)
        AppendCodePoint(text_, 0x10000 + ((high - 0xD800) << 10U) + (unit - 0xDC00));
    else if (!isHigh)
        AppendCodePoint(text_, isLow || unit > 0x10FFFF ? 0xFFFD : unit);
    high_ = isHigh ? unit : 0;
}

void TCharacters::AddPascalCode(std::string_view code, const TByteEncodings& encodings) {
    if (code.front() == '^' && code.size() == 2)
        return AddByte(static_cast<unsigned char>(UpperCase(code)[1] ^ 0x40), encodings);
    const auto base = std::find_if(kBases.begin(), kBases.end(),
                                   [&](const TBase& b) { return code.substr(1).starts_with(b.Sign); });
    const bool hasSign = base != kBases.end();
    const std::string_view digits = code.substr(hasSign ? 2 : 1);
    std::uint32_t value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value, hasSign ? base->Base : 10);
    const bool isWide = hasSign && base->Base == 16 && digits.size() > kByteDigits;
    if (value <= 0xFF && !isWide)
        AddByte(static_cast<unsigned char>(value), encodings);
    else
        AddUnit(value);
}

std::string TCharacters::Take() {
    EndNumbers();
    return std::exchange(text_, {});
}

void TCharacters::EndNumbers() {
    high_ = 0;
    if (bytes_.empty()) return;
    text_ += Decoded(std::exchange(bytes_, {}), *encodings_);
}

}  // namespace tml
