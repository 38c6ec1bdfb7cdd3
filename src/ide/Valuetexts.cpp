#include "ide/Valuetexts.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>

#include "base/Format.h"
#include "base/Utf8.h"
#include "windows/Markedblanks.h"

namespace tml {
namespace {

using TParsed = std::optional<TFormValue>;

std::string Trimmed(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(" \t");
    return begin == std::string::npos ? std::string()
                                      : text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

std::string SetText(const TFormValue& value) {
    std::string text = "[";
    for (const TFormValue& item : value.Items)
        text += (text.size() > 1 ? "," : "") + item.Text;
    return text + "]";
}

std::string Counted(std::size_t count, std::string_view what) {
    return Format("(%d %s%s)", count, what, count == 1 ? "" : "s");
}

bool IsName(const std::string& text) {
    const auto isPart = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
               c == '.' || static_cast<unsigned char>(c) >= 0x80;
    };
    const bool begins = !text.empty() && !(text.front() >= '0' && text.front() <= '9') &&
                        text.front() != '.' && text.back() != '.';
    return begins && std::all_of(text.begin(), text.end(), isPart);
}

/// The name as the enumeration writes it; "" where it has none.
std::string Among(std::string_view names, const std::string& text) {
    for (std::string& name : WordsOf(names))
        if (SameText(name, text)) return name;
    return {};
}

std::string Listed(std::string_view names) {
    std::string list;
    for (const std::string& name : WordsOf(names))
        list += (list.empty() ? "" : ", ") + name;
    return list;
}

std::optional<std::int64_t> NumberIn(const std::string& text) {
    const bool isHex = text.starts_with('$');
    const char* const begin = text.data() + (isHex ? 1 : 0);
    const char* const end = text.data() + text.size();
    std::int64_t number = 0;
    const auto result = std::from_chars(begin, end, number, isHex ? 16 : 10);
    return result.ec == std::errc{} && result.ptr == end && begin != end ? std::optional(number)
                                                                         : std::nullopt;
}

TParsed ParseInteger(const TPropertyType& type, const std::string& text, std::string& reason) {
    const auto number = NumberIn(text);
    const bool isLong = type.Takes == TTakes::Long;
    if (number && (isLong || (*number >= std::numeric_limits<std::int32_t>::min() &&
                              *number <= std::numeric_limits<std::int32_t>::max())))
        return TFormValue::Integer(*number);
    if (!type.Of.empty() && text.size() > type.Of.size() && text.starts_with(type.Of) && IsName(text))
        return TFormValue::Identifier(text);
    reason = Format("takes a whole number of %d bits", isLong ? 64 : 32);
    if (!type.Of.empty()) reason += Format(" or a name that begins with \"%s\"", type.Of);
    return {};
}

TParsed ParseFloat(const std::string& text, std::string& reason) {
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    const bool hasDigit = text.find_first_of("0123456789") != std::string::npos;
    if (!hasDigit || result.ec != std::errc{} || result.ptr != end) {
        reason = "takes a number with a decimal point";
        return {};
    }
    TFormValue value;
    value.Kind = TFormValueKind::Float;
    value.Text = text.find_first_of(".eE") == std::string::npos ? text + ".0" : text;
    return value;
}

TParsed ParseBoolean(const std::string& text, std::string& reason) {
    const std::string name = Among("False True", text);
    if (!name.empty()) return TFormValue::Identifier(name);
    reason = "takes True or False";
    return {};
}

TParsed ParseName(const TPropertyType& type, const std::string& text, std::string& reason) {
    const std::string name =
        type.Takes == TTakes::OneOf ? Among(type.Of, text) : (IsName(text) ? text : std::string());
    if (!name.empty()) return TFormValue::Identifier(name);
    reason = type.Takes == TTakes::OneOf ? "takes one of " + Listed(type.Of)
                                         : "takes a name of letters, digits and underscores";
    return {};
}

TParsed ParseSet(const TPropertyType& type, std::string text, std::string& reason) {
    reason = type.Of.empty() ? "takes names in brackets, separated by commas"
                             : "takes names in brackets, among " + Listed(type.Of);
    if (text.size() < 2 || text.front() != '[' || text.back() != ']') return {};
    TFormValue value;
    value.Kind = TFormValueKind::Set;
    for (const std::string& word : TStringList::FromCommaText(text.substr(1, text.size() - 2))) {
        const std::string name =
            type.Of.empty() ? (IsName(word) ? word : std::string()) : Among(type.Of, word);
        if (name.empty()) return {};
        const TFormValue item = TFormValue::Identifier(name);
        if (std::find(value.Items.begin(), value.Items.end(), item) == value.Items.end())
            value.Items.push_back(item);
    }
    return value;
}

}  // namespace

bool IsOneLine(const std::string& text) {
    return std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

std::string ValueText(const TFormValue& value) {
    switch (value.Kind) {
        case TFormValueKind::String:
            return IsOneLine(value.Text) ? value.Text : WithMarkedBlanks(value.Text);
        case TFormValueKind::Set:
            return SetText(value);
        case TFormValueKind::List:
            return Counted(value.Items.size(), "line");
        case TFormValueKind::Collection:
            return Counted(value.Collection.size(), "item");
        case TFormValueKind::Binary:
            return Counted(value.Text.size(), "byte");
        default:
            return value.Text;
    }
}

std::optional<TFormValue> ValueOfText(const TPropertyType& type, const std::string& text,
                                      std::string& reason) {
    const std::string word = Trimmed(text);
    switch (type.Takes) {
        case TTakes::String:
            return TFormValue::String(text);
        case TTakes::Integer:
        case TTakes::Long:
            return ParseInteger(type, word, reason);
        case TTakes::Float:
            return ParseFloat(word, reason);
        case TTakes::Boolean:
            return ParseBoolean(word, reason);
        case TTakes::OneOf:
        case TTakes::Component:
        case TTakes::Method:
        case TTakes::Name:
            return ParseName(type, word, reason);
        case TTakes::SetOf:
            return ParseSet(type, word, reason);
        default:
            reason = "is not changed by typing";
            return {};
    }
}

}  // namespace tml
