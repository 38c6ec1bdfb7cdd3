#include "host/Registrytext.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/Utf8.h"

namespace tml {
namespace {

struct TEscape {
    char Letter;
    char Character;
};
constexpr std::array<TEscape, 5> kEscapes = {
    {{'"', '"'}, {'\\', '\\'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'}}};

constexpr std::string_view kHexDigits = "0123456789abcdef";

/// Reads the character behind a "\" at pos and moves behind it.
std::optional<char> ReadEscape(std::string_view text, std::size_t& pos) {
    if (pos >= text.size()) return std::nullopt;
    const char letter = text[pos++];
    for (const TEscape& escape : kEscapes)
        if (escape.Letter == letter) return escape.Character;
    unsigned code = 0;
    if (letter != 'x' || pos + 2 > text.size()) return std::nullopt;
    const char* end = text.data() + pos + 2;
    if (std::from_chars(text.data() + pos, end, code, 16).ptr != end) return std::nullopt;
    pos += 2;
    return static_cast<char>(code);
}

/// Takes a quoted text off the front of rest; none when it is broken.
std::optional<std::string> TakeQuoted(std::string_view& rest) {
    if (!rest.starts_with('"')) return std::nullopt;
    std::string value;
    for (std::size_t pos = 1; pos < rest.size();) {
        const char c = rest[pos++];
        if (c == '"') {
            rest.remove_prefix(pos);
            return value;
        }
        const auto character = c == '\\' ? ReadEscape(rest, pos) : std::optional<char>(c);
        if (!character) return std::nullopt;
        value += *character;
    }
    return std::nullopt;
}

std::optional<TRegistryValue> ParseRegistryValue(std::string_view text) {
    const std::string_view type = text.substr(0, text.find(' '));
    std::string_view rest = Trim(text.substr(type.size()));
    if (type == "bool" && rest == "true") return TRegistryValue(true);
    if (type == "bool" && rest == "false") return TRegistryValue(false);
    if (type == "string") {
        auto value = TakeQuoted(rest);
        if (!value || !rest.empty()) return std::nullopt;
        return TRegistryValue(std::move(*value));
    }
    int number = 0;
    const char* end = rest.data() + rest.size();
    const auto [stop, error] = std::from_chars(rest.data(), end, number);
    if (type != "integer" || error != std::errc() || stop != end) return std::nullopt;
    return TRegistryValue(number);
}

/// A section is a key without its leading separator; it may be asked for with one.
std::string_view WithoutLeadingSeparator(std::string_view key) {
    return key.starts_with('\\') ? key.substr(1) : key;
}

TIniLine ReadValueLine(std::string_view line) {
    TIniLine read{TIniLine::TKind::Broken, {}, {}};
    auto name = TakeQuoted(line);
    line = Trim(line);
    if (!name || !line.starts_with('=')) return read;
    read.Value = Trim(line.substr(1));
    if (!ParseRegistryValue(read.Value)) return read;
    read.Name = std::move(*name);
    read.Kind = TIniLine::TKind::Value;
    return read;
}

TIniLine ReadLine(std::string_view line) {
    if (line.starts_with('"')) return ReadValueLine(line);
    if (!line.starts_with('[')) return {};
    if (!line.ends_with(']')) return {TIniLine::TKind::Broken, {}, {}};
    return {
        TIniLine::TKind::Section, std::string(WithoutLeadingSeparator(line.substr(1, line.size() - 2))), {}};
}

std::string SectionLine(std::string_view key) {
    return "[\\" + std::string(key) + "]";
}

std::string ValueLine(std::string_view name, std::string_view value) {
    return QuoteRegistryText(name) + " = " + std::string(value);
}

constexpr TIniSyntax kSyntax{ReadLine, SectionLine, ValueLine, "\n", true};

}  // namespace

TRegistryText::TRegistryText(std::string_view text) : document_(text, kSyntax) {}

std::optional<TRegistryValue> TRegistryText::Find(std::string_view key, std::string_view name) const {
    const auto value = document_.Find(WithoutLeadingSeparator(key), name);
    return value ? ParseRegistryValue(*value) : std::nullopt;
}

void TRegistryText::Set(std::string_view key, std::string_view name, std::string_view value) {
    document_.Set(WithoutLeadingSeparator(key), name, value);
}

std::string QuoteRegistryText(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        const auto* escape = std::find_if(kEscapes.begin(), kEscapes.end(),
                                          [&](const TEscape& row) { return row.Character == c; });
        const auto byte = static_cast<unsigned char>(c);
        if (escape != kEscapes.end())
            quoted += {'\\', escape->Letter};
        else if (byte < ' ' || byte == 0x7F)
            quoted += {'\\', 'x', kHexDigits[byte >> 4U], kHexDigits[byte & 15U]};
        else
            quoted += c;
    }
    return quoted + '"';
}

}  // namespace tml
