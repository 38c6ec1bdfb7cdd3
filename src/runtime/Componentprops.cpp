#include "runtime/Componentprops.h"

#include <charconv>

namespace tml {
namespace {

void RemoveIfThere(IOTAComponent& component, const std::string& name) {
    if (component.GetPropValue(name)) component.RemoveProp(name);
}

}  // namespace

std::string ListPropName(const std::string& name) {
    return name + ".Strings";
}

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
    const auto value = component.GetPropValue(ListPropName(name));
    TStringList list;
    if (!value || value->Kind != TFormValueKind::List) return list;
    for (const TFormValue& item : value->Items)
        list.Add(item.Text);
    return list;
}

void WriteListProp(IOTAComponent& component, const std::string& name, const TStringList& list) {
    if (list == ReadListProp(component, name)) return;
    if (list.Empty())
        RemoveIfThere(component, ListPropName(name));
    else
        component.SetPropValue(ListPropName(name), TFormValue::Strings(list));
}

}  // namespace tml
