#include "setup/Furtherproperties.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"

namespace tml {
namespace {

struct TFurther {
    std::string_view Name;
    std::string_view Default;
    TFormValueKind Kind;
};

constexpr std::array kFurther{
    TFurther{"IgnoreRemovals", "False", TFormValueKind::Identifier},
    TFurther{"MirrorLayout", "True", TFormValueKind::Identifier},
    TFurther{"Tag", "0", TFormValueKind::Integer},
};

const TFurther* FindFurther(std::string_view name) {
    const auto* const found = std::find_if(kFurther.begin(), kFurther.end(),
                                           [&](const TFurther& one) { return SameText(one.Name, name); });
    return found == kFurther.end() ? nullptr : found;
}

std::string ValuesOf(const TFurther& property) {
    return property.Kind == TFormValueKind::Integer ? "a number" : "True or False";
}

bool IsWholeNumber(std::string_view text) {
    const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
    return !digits.empty() && digits.size() < 10 &&
           digits.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

std::string FurtherProperties() {
    std::string text;
    for (const TFurther& property : kFurther)
        text += Format(text.empty() ? "%s: %s" : "; %s: %s", property.Name, ValuesOf(property));
    return text;
}

TFormProperty FurtherProperty(const std::string& line) {
    const std::size_t sign = std::min(line.find('='), line.size());
    const TFurther* property = FindFurther(Trim(line.substr(0, sign)));
    if (property == nullptr)
        throw EBadInput("", 0, line + " is no property that can be set here",
                        "Say one of these: " + FurtherProperties());
    const std::string value(Trim(line.substr(std::min(sign + 1, line.size()))));
    const std::string name(property->Name);
    if (property->Kind == TFormValueKind::Integer && IsWholeNumber(value))
        return {name, TFormValue::Integer(std::stoll(value))};
    if (property->Kind == TFormValueKind::Identifier && (SameText(value, "True") || SameText(value, "False")))
        return {name, TFormValue::Boolean(SameText(value, "True"))};
    throw EBadInput("", 0, Format("\"%s\" is no value of %s", value, name),
                    Format("Say %s behind the equals sign", ValuesOf(*property)));
}

bool IsDefault(const TFormProperty& property) {
    const TFurther* known = FindFurther(property.Name);
    return known != nullptr && property.Value.Text == known->Default;
}

}  // namespace tml
