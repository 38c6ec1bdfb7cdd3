#include "tables/Pseudo.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/Utf8.h"
#include "tables/Textshapes.h"

namespace tml {
namespace {

constexpr std::array<std::string_view, 26> kSmall = {
    "\u00e0", "\u0180", "\u00e7", "\u00f0", "\u00e9", "\u0192", "\u011d", "\u0125", "\u00ee",
    "\u0135", "\u0137", "\u013c", "\u0271", "\u00f1", "\u00f6", "\u00fe", "q",      "\u0155",
    "\u0161", "\u0163", "\u00fb", "v",      "\u0175", "x",      "\u00fd", "\u017e"};
constexpr std::array<std::string_view, 26> kCapital = {
    "\u00c0", "\u0181", "\u00c7", "\u00d0", "\u00c9", "\u0191", "\u011c", "\u0124", "\u00ce",
    "\u0134", "\u0136", "\u013b", "M",      "\u00d1", "\u00d6", "\u00de", "Q",      "\u0154",
    "\u0160", "\u0162", "\u00db", "V",      "\u0174", "X",      "\u00dd", "\u017d"};

constexpr bool IsIn(char c, char first, char last) {
    return c >= first && c <= last;
}
constexpr bool IsAlnum(char c) {
    return IsIn(c, '0', '9') || IsIn(c, 'a', 'z') || IsIn(c, 'A', 'Z');
}

std::size_t SkipAny(std::string_view text, std::size_t pos, std::string_view chars) {
    return std::min(text.find_first_not_of(chars, pos), text.size());
}

/// The size of "%0:-10.2d", "%ld", "%%" at the start, 0 for none.
std::size_t FormatSize(std::string_view text) {
    if (text.starts_with("%%")) return 2;
    std::size_t pos = SkipAny(text, 1, "0123456789*");
    if (pos < text.size() && (text[pos] == ':' || text[pos] == '$')) ++pos;
    pos = SkipAny(text, pos, "-+#0123456789*");
    if (pos < text.size() && text[pos] == '.') pos = SkipAny(text, pos + 1, "0123456789*");
    pos = SkipAny(text, pos, "hlLqjzt");
    constexpr std::string_view kTypes = "dDuUxXsSpPeEfFgGnNmMiIcCoO";
    return pos < text.size() && kTypes.find(text[pos]) != std::string_view::npos ? pos + 1 : 0;
}

/// The size of what begins with an opener and ends with the closer, names and attributes between; 0 for none.
std::size_t EnclosedSize(std::string_view text, std::string_view opener, char closer) {
    if (!text.starts_with(opener) || text.size() <= opener.size()) return 0;
    const char first = text[opener.size()];
    if (!IsAlnum(first) && first != '_' && first != '/') return 0;
    const std::size_t end = text.find_first_of(std::string("\n") + closer, opener.size());
    return end != std::string_view::npos && text[end] == closer ? end + 1 : 0;
}

/// The size of "&amp;", "&#160;", "&&", or of an accelerator with its letter.
std::size_t AmpersandSize(std::string_view text) {
    if (text.starts_with("&&")) return 2;
    std::size_t pos = text.starts_with("&#") ? 2 : 1;
    while (pos < text.size() && IsAlnum(text[pos]))
        ++pos;
    if (pos > 2 && pos < text.size() && text[pos] == ';') return pos + 1;
    std::size_t behind = 1;
    if (text.size() > 1) DecodeCodePoint(text, behind);
    return behind;
}

/// The size of what a program reads at the start of the text, 0 for none.
std::size_t KeptSize(std::string_view text) {
    switch (text.front()) {
        case '%':
            return FormatSize(text);
        case '{':
            return EnclosedSize(text, "{", '}');
        case '$':
            return EnclosedSize(text, "$(", ')');
        case '<':
            return EnclosedSize(text, "<", '>');
        case '&':
            return AmpersandSize(text);
        default:
            return 0;
    }
}

/// Short texts grow most, as they do in translations.
std::size_t Growth(std::size_t letters) {
    if (letters <= 10) return letters;
    return letters <= 20 ? letters * 8 / 10 : letters * 4 / 10;
}

std::string PseudoPart(std::string_view text) {
    if (!HasLetter(text) || IsPath(Trim(text))) return std::string(text);
    std::string changed = "[";
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t kept = KeptSize(text.substr(pos));
        const char c = text[pos];
        if (kept > 0)
            changed += text.substr(pos, kept);
        else if (IsIn(c, 'a', 'z'))
            changed += kSmall[static_cast<std::size_t>(c - 'a')];
        else if (IsIn(c, 'A', 'Z'))
            changed += kCapital[static_cast<std::size_t>(c - 'A')];
        else
            changed += c;
        pos += std::max<std::size_t>(kept, 1);
    }
    return changed + ' ' + std::string(Growth(CountCodePoints(text)), '~') + ']';
}

}  // namespace

std::string PseudoText(std::string_view text) {
    std::string changed;
    while (true) {
        const std::size_t end = text.find_first_of("\r\n|");
        changed += PseudoPart(text.substr(0, end));
        if (end == std::string_view::npos) return changed;
        changed += text[end];
        text.remove_prefix(end + 1);
    }
}

}  // namespace tml
