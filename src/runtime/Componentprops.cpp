#include "runtime/Componentprops.h"

#include <charconv>
#include <utility>
#include <vector>

#include "base/Errors.h"
#include "base/Utf8.h"

namespace tml {
namespace {

/// Under what name a form stores a string list property.
std::string ListPropName(const std::string& name) {
    return name + ".Strings";
}

int ToInteger(const std::optional<TFormValue>& value, int defaultValue) {
    if (!value || value->Kind != TFormValueKind::Integer) return defaultValue;
    int number = defaultValue;
    std::from_chars(value->Text.data(), value->Text.data() + value->Text.size(), number);
    return number;
}

std::string ToText(const std::optional<TFormValue>& value) {
    return value && value->Kind == TFormValueKind::String ? value->Text : std::string();
}

TStringList ToList(std::optional<TFormValue> value) {
    if (!value || value->Kind != TFormValueKind::List) return {};
    std::vector<std::string> lines;
    lines.reserve(value->Items.size());
    for (TFormValue& item : value->Items)
        lines.push_back(std::move(item.Text));
    return TStringList(std::move(lines));
}

std::optional<TFormValue> InheritedValue(IOTAComponent& component, const std::string& name) {
    const auto ancestor = component.GetAncestor();
    return ancestor == nullptr ? std::nullopt : ReadProp(*ancestor, name);
}

/// Stores a value, or lets the one that holds without it hold.
void Write(IOTAComponent& component, const std::string& name, const TFormValue& value, bool isInherited) {
    // What is written would stand for a value of the ancestor that nobody has seen.
    if (component.GetOrigin() == TComponentOrigin::coInherited && component.GetAncestor() == nullptr)
        throw EBadInput("", 0, component.GetName() + ": the form that it repeats is not in the project",
                        "Add the unit of the form's ancestor to the project");
    if (!isInherited)
        component.SetPropValue(name, value);
    else if (component.GetPropValue(name))
        component.RemoveProp(name);
}

bool ToBoolean(const std::optional<TFormValue>& value, bool defaultValue) {
    if (!value || value->Kind != TFormValueKind::Identifier) return defaultValue;
    return SameText(value->Text, "True");
}

}  // namespace

std::optional<TFormValue> ReadProp(IOTAComponent& component, const std::string& name) {
    auto value = component.GetPropValue(name);
    if (!value) value = InheritedValue(component, name);
    return value;
}

void WriteProp(IOTAComponent& component, const std::string& name, const TFormValue& value) {
    if (InheritedValue(component, name) != value)
        component.SetPropValue(name, value);
    else if (component.GetPropValue(name))
        component.RemoveProp(name);
}

std::shared_ptr<IOTAComponent> ReadComponentProp(IOTAComponent& component, const std::string& name) {
    if (component.GetPropValue(name)) return component.GetPropComponent(name);
    const auto ancestor = component.GetAncestor();
    return ancestor == nullptr ? nullptr : ReadComponentProp(*ancestor, name);
}

int ReadIntegerProp(IOTAComponent& component, const std::string& name, int defaultValue) {
    return ToInteger(ReadProp(component, name), defaultValue);
}

void WriteIntegerProp(IOTAComponent& component, const std::string& name, int value, int defaultValue) {
    if (value == ReadIntegerProp(component, name, defaultValue)) return;
    Write(component, name, TFormValue::Integer(value),
          value == ToInteger(InheritedValue(component, name), defaultValue));
}

bool ReadBooleanProp(IOTAComponent& component, const std::string& name, bool defaultValue) {
    return ToBoolean(ReadProp(component, name), defaultValue);
}

void WriteBooleanProp(IOTAComponent& component, const std::string& name, bool value, bool defaultValue) {
    if (value == ReadBooleanProp(component, name, defaultValue)) return;
    Write(component, name, TFormValue::Boolean(value),
          value == ToBoolean(InheritedValue(component, name), defaultValue));
}

std::string ReadStringProp(IOTAComponent& component, const std::string& name) {
    return ToText(ReadProp(component, name));
}

void WriteStringProp(IOTAComponent& component, const std::string& name, const std::string& value) {
    if (value == ReadStringProp(component, name)) return;
    Write(component, name, TFormValue::String(value), value == ToText(InheritedValue(component, name)));
}

TStringList ReadListProp(IOTAComponent& component, const std::string& name) {
    return ToList(ReadProp(component, ListPropName(name)));
}

void WriteListProp(IOTAComponent& component, const std::string& name, const TStringList& list) {
    const std::string stored = ListPropName(name);
    const auto ancestor = component.GetAncestor();
    // A list may be long: what is set is compared with what is held there.
    if (ancestor == nullptr && !list.Empty() && component.GetOrigin() != TComponentOrigin::coInherited)
        return component.SetPropValue(stored, TFormValue::Strings(list));
    if (list == ReadListProp(component, name)) return;
    Write(component, stored, TFormValue::Strings(list), list == ToList(InheritedValue(component, stored)));
}

}  // namespace tml
