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

std::optional<TRegistryValue> ParseValue(std::string_view text) {
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

void ParseValueLine(std::string_view text, TRegistryLine& line) {
    line.Kind = TRegistryLine::TKind::Broken;
    auto name = TakeQuoted(text);
    text = Trim(text);
    if (!name || !text.starts_with('=')) return;
    line.Name = std::move(*name);
    auto value = ParseValue(Trim(text.substr(1)));
    if (!value) return;
    line.Value = std::move(*value);
    line.Kind = TRegistryLine::TKind::Value;
}

std::string_view WithoutLeadingSeparator(std::string_view key) {
    return key.starts_with('\\') ? key.substr(1) : key;
}

TRegistryLine ParseLine(std::string_view text) {
    TRegistryLine line;
    line.Text = std::string(text);
    std::string_view content = Trim(text);
    if (content.starts_with("\xEF\xBB\xBF")) content = Trim(content.substr(3));
    if (content.starts_with('[')) {
        const bool closed = content.ends_with(']');
        line.Kind = closed ? TRegistryLine::TKind::Key : TRegistryLine::TKind::Broken;
        if (closed) line.Name = std::string(WithoutLeadingSeparator(content.substr(1, content.size() - 2)));
    } else if (content.starts_with('"')) {
        ParseValueLine(content, line);
    }
    return line;
}

bool IsBlank(const TRegistryLine& line) {
    return Trim(line.Text).empty();
}

/// Begin and end of the lines under a key (its own line left out); none without the key. A key that stands
/// twice counts where it stands first.
std::optional<std::pair<std::size_t, std::size_t>> KeyRange(const std::vector<TRegistryLine>& lines,
                                                            std::string_view key) {
    const auto isKey = [](const TRegistryLine& line) { return line.Kind == TRegistryLine::TKind::Key; };
    const auto head = std::find_if(lines.begin(), lines.end(), [&](const TRegistryLine& line) {
        return isKey(line) && SameText(line.Name, WithoutLeadingSeparator(key));
    });
    if (head == lines.end()) return std::nullopt;
    const auto end = std::find_if(head + 1, lines.end(), isKey);
    return std::pair(static_cast<std::size_t>(head - lines.begin()) + 1,
                     static_cast<std::size_t>(end - lines.begin()));
}

}  // namespace

std::vector<TRegistryLine> ParseRegistryText(std::string_view text) {
    std::vector<TRegistryLine> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        lines.push_back(ParseLine(text.substr(0, end)));
        text.remove_prefix(end);
    }
    return lines;
}

std::optional<std::size_t> FindRegistryValue(const std::vector<TRegistryLine>& lines, std::string_view key,
                                             std::string_view name) {
    const auto range = KeyRange(lines, key);
    for (std::size_t i = range ? range->first : 0; range && i < range->second; ++i)
        if (lines[i].Kind == TRegistryLine::TKind::Value && SameText(lines[i].Name, name)) return i;
    return std::nullopt;
}

std::string SetRegistryValue(const std::vector<TRegistryLine>& lines, std::string_view key,
                             std::string_view name, std::string_view value) {
    const bool dos = !lines.empty() && lines.front().Text.ends_with("\r\n");
    const std::string lineEnd = dos ? "\r\n" : "\n";
    std::string added = QuoteRegistryText(name) + " = " + std::string(value) + lineEnd;
    const auto range = KeyRange(lines, key);
    const auto old = FindRegistryValue(lines, key, name);
    std::size_t place = old ? *old : (range ? range->second : lines.size());
    while (!old && range && place > range->first && IsBlank(lines[place - 1]))
        --place;
    if (!range)
        added = (lines.empty() ? "" : lineEnd) + "[\\" + std::string(WithoutLeadingSeparator(key)) + "]" +
                lineEnd + added;

    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i == place) text += added;
        if (i == place && old) continue;
        text += lines[i].Text;
        if (!text.ends_with('\n')) text += lineEnd;
    }
    return place == lines.size() ? text + added : text;
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
