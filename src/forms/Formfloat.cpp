#include "forms/Formfloat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <locale>
#include <sstream>

namespace tml {

namespace {

constexpr int kExtendedBias = 16383;
constexpr unsigned kExponentMask = 0x7FFF;
constexpr std::size_t kLongWidth = 29;
constexpr int kLongDecimals = 20;
constexpr long double kCurrencyScale = 10000;

template <typename Number>
std::string BytesOf(Number number) {
    std::string bytes(sizeof number, '\0');
    for (std::size_t i = 0; i < sizeof number; ++i) {
        bytes[i] = static_cast<char>((static_cast<std::uint64_t>(number) >> (8 * i)) & 0xFF);
    }
    return bytes;
}

template <typename Number>
Number NumberOf(std::string_view bytes) {
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < sizeof(Number); ++i) {
        number |= static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    }
    return static_cast<Number>(number);
}

template <typename Float, typename Bits>
Float FloatOf(std::string_view bytes) {
    const Bits bits = NumberOf<Bits>(bytes);
    Float value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

template <typename Bits, typename Float>
std::string BitsOf(Float value) {
    Bits bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return BytesOf(bits);
}

std::string Extended(std::uint64_t mantissa, unsigned exponent, bool negative) {
    return BytesOf(mantissa) + BytesOf(static_cast<std::uint16_t>(exponent | (negative ? 0x8000U : 0U)));
}

std::string ToExtended(long double value) {
    const bool negative = std::signbit(value);
    constexpr std::uint64_t kTop = std::uint64_t{1} << 63;
    if (std::isnan(value)) return Extended(kTop | (kTop >> 1), kExponentMask, negative);
    if (std::isinf(value)) return Extended(kTop, kExponentMask, negative);
    if (value == 0) return Extended(0, 0, negative);
    int exponent = 0;
    const long double fraction = std::frexp(std::fabs(value), &exponent);  // in [0.5, 1)
    const int biased = exponent + kExtendedBias - 1;
    // A number below the smallest normal one keeps the smallest exponent and loses leading bits.
    const int shift = biased > 0 ? 64 : 64 + biased - 1;
    return Extended(static_cast<std::uint64_t>(std::ldexp(fraction, shift)),
                    static_cast<unsigned>(biased > 0 ? biased : 0), negative);
}

long double FromExtended(std::string_view bytes) {
    const auto mantissa = NumberOf<std::uint64_t>(bytes);
    const auto top = NumberOf<std::uint16_t>(bytes.substr(8));
    const int exponent = static_cast<int>(top & kExponentMask);
    const long double sign = (top & 0x8000) != 0 ? -1 : 1;
    const bool isNormal = (mantissa >> 63) != 0;
    if (exponent == kExponentMask && mantissa == std::uint64_t{1} << 63) {
        return sign * std::numeric_limits<long double>::infinity();
    }
    // Mantissas without their leading bit are no numbers for the processors of today.
    if (exponent == kExponentMask || (exponent != 0 && !isNormal)) {
        return std::numeric_limits<long double>::quiet_NaN();
    }
    const int power = (exponent == 0 ? 1 : exponent) - kExtendedBias - 63;
    return sign * std::ldexp(static_cast<long double>(mantissa), power);
}

std::string_view WithoutSuffix(std::string_view text) {
    return FloatKindOf(text) == TFormFloatKind::Extended ? text : text.substr(0, text.size() - 1);
}

/// from_chars gives up on what is too large or too small for a normal number; the stream does not.
template <typename Float>
Float ParseExtreme(std::string_view text) {
    Float value = 0;
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    stream >> value;
    const bool isTooLarge = stream.fail();
    return isTooLarge ? std::copysign(std::numeric_limits<Float>::infinity(), value) : value;
}

template <typename Float>
Float Parse(std::string_view text) {
    Float value = 0;
    if (text.front() == '+') text.remove_prefix(1);
    const std::from_chars_result result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc::result_out_of_range ? ParseExtreme<Float>(text) : value;
}

/// Most numbers have few digits: their digits and the power of ten are exact, so one division rounds once,
/// as the library routine would, in a tenth of its time.
bool ParseShort(std::string_view text, long double& value) {
    constexpr std::size_t kExactDigits = 18;
    static const std::array<long double, kExactDigits + 1> kPowers = [] {
        std::array<long double, kExactDigits + 1> powers{1};
        for (std::size_t i = 1; i < powers.size(); ++i)
            powers[i] = powers[i - 1] * 10;
        return powers;
    }();
    if constexpr (std::numeric_limits<long double>::digits < 64) return false;
    const bool negative = text.front() == '-';
    std::uint64_t digits = 0;
    std::size_t count = 0;
    std::size_t decimals = 0;
    bool behindPoint = false;
    for (const char c : text.substr(negative ? 1 : 0)) {
        if (c == '.') {
            behindPoint = true;
            continue;
        }
        if (c < '0' || c > '9' || ++count > kExactDigits) return false;
        digits = digits * 10 + static_cast<std::uint64_t>(c - '0');
        if (behindPoint) ++decimals;
    }
    value = static_cast<long double>(digits) / kPowers[decimals];
    if (negative) value = -value;
    return true;
}

template <typename Float>
std::string Shortest(Float value) {
    std::array<char, 64> buffer{};
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr};
}

std::string CurrencyText(std::int64_t number) {
    const std::uint64_t size =
        number < 0 ? 0 - static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number);
    std::string decimals = std::to_string(10000 + size % 10000).substr(1);
    while (!decimals.empty() && decimals.back() == '0')
        decimals.pop_back();
    std::string text = (number < 0 ? "-" : "") + std::to_string(size / 10000);
    return decimals.empty() ? text : text + "." + decimals;
}

/// Digit by digit where no more than four of them follow the point: floating point would lose the last ones
/// of large amounts.
std::int64_t CurrencyOf(std::string_view text) {
    constexpr std::size_t kDecimals = 4;
    std::string digits(text.substr(text.front() == '+' ? 1 : 0));
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t decimals = digits.size() - std::min(point + 1, digits.size());
    if (decimals <= kDecimals) {
        digits.erase(point, 1);
        digits.append(kDecimals - decimals, '0');
        std::int64_t number = 0;
        const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (result.ec == std::errc() && result.ptr == digits.data() + digits.size()) return number;
    }
    return std::llround(Parse<long double>(text) * kCurrencyScale);
}

long double ValueOf(const TFormFloat& value) {
    switch (value.Kind) {
        case TFormFloatKind::Extended:
            return FromExtended(value.Raw);
        case TFormFloatKind::Single:
            return FloatOf<float, std::uint32_t>(value.Raw);
        case TFormFloatKind::Currency:
            return static_cast<long double>(NumberOf<std::int64_t>(value.Raw)) / kCurrencyScale;
        case TFormFloatKind::Double:
        case TFormFloatKind::Date:
            break;
    }
    return FloatOf<double, std::uint64_t>(value.Raw);
}

}  // namespace

TFormFloatKind FloatKindOf(std::string_view text) {
    switch (text.empty() ? '\0' : text.back() | 0x20) {
        case 's':
            return TFormFloatKind::Single;
        case 'c':
            return TFormFloatKind::Currency;
        case 'd':
            return TFormFloatKind::Date;
        default:
            return TFormFloatKind::Extended;
    }
}

std::string_view FloatSuffix(TFormFloatKind kind) {
    switch (kind) {
        case TFormFloatKind::Single:
            return "s";
        case TFormFloatKind::Currency:
            return "c";
        case TFormFloatKind::Date:
            return "d";
        default:
            return "";
    }
}

std::string FloatBytes(std::string_view text) {
    const std::string_view number = WithoutSuffix(text);
    switch (FloatKindOf(text)) {
        case TFormFloatKind::Single:
            return BitsOf<std::uint32_t>(Parse<float>(number));
        case TFormFloatKind::Date:
            return BitsOf<std::uint64_t>(Parse<double>(number));
        case TFormFloatKind::Currency:
            return BytesOf(CurrencyOf(number));
        default:
            break;
    }
    long double value = 0;
    return ToExtended(ParseShort(number, value) ? value : Parse<long double>(number));
}

std::string ExtendedBytes(const TFormFloat& value) {
    return value.Kind == TFormFloatKind::Extended ? std::string(value.Raw) : ToExtended(ValueOf(value));
}

std::string LongFloatText(std::string_view extendedBytes) {
    const long double value = FromExtended(extendedBytes);
    std::string text;
    if (std::isnan(value)) {
        text = "Nan";
    } else if (std::isinf(value)) {
        text = value < 0 ? "-Inf" : "+Inf";
    } else {
        std::array<char, 64> buffer{};
        char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                        std::chars_format::scientific, kLongDecimals)
                              .ptr;
        text.assign(buffer.data(), end);
        const std::size_t e = text.find('e');
        const std::size_t digits = text.size() - e - 2;
        text = text.substr(0, e) + "E" + text[e + 1] + std::string(digits < 4 ? 4 - digits : 0, '0') +
               text.substr(e + 2);
    }
    return text.size() < kLongWidth ? std::string(kLongWidth - text.size(), ' ') + text : text;
}

std::string ShortFloatText(const TFormFloat& value) {
    if (value.Raw.empty()) return std::string(WithoutSuffix(value.Text));
    switch (value.Kind) {
        case TFormFloatKind::Currency:
            return CurrencyText(NumberOf<std::int64_t>(value.Raw));
        case TFormFloatKind::Single:
            return Shortest(FloatOf<float, std::uint32_t>(value.Raw));
        case TFormFloatKind::Extended:
            return Shortest(FromExtended(value.Raw));
        case TFormFloatKind::Double:
        case TFormFloatKind::Date:
            break;
    }
    return Shortest(FloatOf<double, std::uint64_t>(value.Raw));
}

}  // namespace tml
