#include "tables/Fontvalue.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "base/Utf8.h"

namespace tml {
namespace {

constexpr std::string_view kStylePrefix = "fs";

std::string Escaped(std::string_view name) {
    std::string text;
    for (const char c : name) {
        if (c == ';' || c == '\\') text += '\\';
        text += c;
    }
    return text;
}

/// Takes a setting with its escapes resolved.
std::string TakeSetting(std::string_view& text) {
    std::string setting;
    std::size_t pos = 0;
    for (; pos < text.size() && text[pos] != ';'; ++pos) {
        if (text[pos] == '\\' && pos + 1 < text.size()) ++pos;
        setting += text[pos];
    }
    text.remove_prefix(std::min(pos + 1, text.size()));
    return setting;
}

std::vector<std::string> Split(std::string_view text) {
    std::vector<std::string> parts;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(','), text.size());
        parts.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return parts;
}

std::string Joined(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts)
        text += (text.empty() ? "" : ",") + part;
    return text;
}

bool IsInteger(std::string_view text) {
    long number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

}  // namespace

TFontValue TFontValue::Over(const TFontValue& other) const {
    TFontValue font = *this;
    if (!Name) font.Name = other.Name;
    if (!Height) font.Height = other.Height;
    if (!Style) font.Style = other.Style;
    return font;
}

std::string TFontValue::Text() const {
    std::string text;
    const auto add = [&](const char* key, const std::string& value) {
        text += (text.empty() ? "" : ";") + std::string(key) + value;
    };
    if (Name) add("Name=", Escaped(*Name));
    if (Height) add("Height=", *Height);
    if (Style) add("Style=", Joined(*Style));
    return text;
}

TFontValue TFontValue::FromText(std::string_view text) {
    TFontValue font;
    while (!text.empty()) {
        const std::string setting = TakeSetting(text);
        const std::size_t equals = setting.find('=');
        if (equals == std::string::npos) continue;
        const std::string key = setting.substr(0, equals);
        const std::string value = setting.substr(equals + 1);
        if (SameText(key, "Name")) font.Name = value;
        if (SameText(key, "Height") && IsInteger(value)) font.Height = value;
        if (SameText(key, "Style")) font.Style = Split(value);
    }
    return font;
}

bool TFontValue::Take(std::string_view name, const TFormValue& value) {
    if (SameText(name, "Name") && value.Kind == TFormValueKind::String) {
        Name = value.Text;
    } else if (SameText(name, "Height") && value.Kind == TFormValueKind::Integer) {
        Height = value.Text;
    } else if (SameText(name, "Style") && value.Kind == TFormValueKind::Set) {
        Style.emplace();
        for (const TFormValue& style : value.Items)
            if (style.Text.size() > kStylePrefix.size())
                Style->push_back(style.Text.substr(kStylePrefix.size()));
    } else {
        return false;
    }
    return true;
}

std::optional<TFormValue> TFontValue::Property(std::string_view name) const {
    TFormValue value;
    if (SameText(name, "Name") && Name) return TFormValue::String(*Name);
    if (SameText(name, "Height") && Height) {
        value.Kind = TFormValueKind::Integer;
        value.Text = *Height;
        return value;
    }
    if (!SameText(name, "Style") || !Style) return std::nullopt;
    value.Kind = TFormValueKind::Set;
    for (const std::string& style : *Style)
        value.Items.push_back(TFormValue::Identifier(std::string(kStylePrefix) + style));
    return value;
}

}  // namespace tml
