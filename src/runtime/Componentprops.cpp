#include "runtime/Componentprops.h"

#include <charconv>
#include <utility>
#include <vector>

namespace tml {
namespace {

void RemoveIfThere(IOTAComponent& component, const std::string& name) {
    if (component.GetPropValue(name)) component.RemoveProp(name);
}

/// Under what name a form stores a string list property.
std::string ListPropName(const std::string& name) {
    return name + ".Strings";
}

}  // namespace

int ReadIntegerProp(IOTAComponent& component, const std::string& name, int defaultValue) {
    const auto value = component.GetPropValue(name);
    if (!value || value->Kind != TFormValueKind::Integer) return defaultValue;
    int number = defaultValue;
    std::from_chars(value->Text.data(), value->Text.data() + value->Text.size(), number);
    return number;
}

void WriteIntegerProp(IOTAComponent& component, const std::string& name, int value, int defaultValue) {
    if (value == ReadIntegerProp(component, name, defaultValue)) return;
    if (value == defaultValue)
        RemoveIfThere(component, name);
    else
        component.SetPropValue(name, TFormValue::Integer(value));
}

std::string ReadStringProp(IOTAComponent& component, const std::string& name) {
    const auto value = component.GetPropValue(name);
    return value && value->Kind == TFormValueKind::String ? value->Text : std::string();
}

void WriteStringProp(IOTAComponent& component, const std::string& name, const std::string& value) {
    if (value == ReadStringProp(component, name)) return;
    if (value.empty())
        RemoveIfThere(component, name);
    else
        component.SetPropValue(name, TFormValue::String(value));
}

TStringList ReadListProp(IOTAComponent& component, const std::string& name) {
    auto value = component.GetPropValue(ListPropName(name));
    if (!value || value->Kind != TFormValueKind::List) return {};
    std::vector<std::string> lines;
    lines.reserve(value->Items.size());
    for (TFormValue& item : value->Items)
        lines.push_back(std::move(item.Text));
    return TStringList(std::move(lines));
}

void WriteListProp(IOTAComponent& component, const std::string& name, const TStringList& list) {
    if (list == ReadListProp(component, name)) return;
    if (list.Empty())
        RemoveIfThere(component, ListPropName(name));
    else
        component.SetPropValue(ListPropName(name), TFormValue::Strings(list));
}

}  // namespace tml
