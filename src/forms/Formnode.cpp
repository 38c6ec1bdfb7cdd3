#include "forms/Formnode.h"

#include "base/Utf8.h"
#include "forms/Formbuilder.h"
#include "forms/Formchars.h"
#include "forms/Formfile.h"
#include "forms/Formstrings.h"

namespace tml {

std::string TFormNodeData::PropertyName(const TFormPropertyPlace& place) const {
    return place.Change ? place.Change->Name : DecodeFrom(*File, File->Name(place.Name));
}

// Names of equal text have equal length whatever their case, which settles most comparisons.
std::size_t TFormNodeData::FindProperty(std::string_view name) const {
    for (std::size_t i = 0; i < Properties.size(); ++i) {
        const std::string_view bytes = File->Name(Properties[i].Name);
        const bool canDiffer = bytes.empty() || !IsAscii(bytes);
        if (!canDiffer && bytes.size() != name.size()) continue;
        if (SameText(PropertyName(Properties[i]), name)) return i;
    }
    return kNoProperty;
}

TFormValue TFormNodeData::PropertyValue(const TFormPropertyPlace& place) const {
    return place.Change ? place.Change->Value : ReadValue(*File, place.Value);
}

bool TFormNodeData::MayHoldTexts(const TFormPropertyPlace& place) const {
    if (place.Change)
        return tml::MayHoldTexts(place.Change->Value.Kind) ||
               place.Change->Name.find('.') != std::string::npos;
    return File->MayHoldTexts(place.Value) || File->Name(place.Name).find('.') != std::string_view::npos;
}

std::vector<std::string> TFormNode::PropertyNames() const {
    std::vector<std::string> names;
    names.reserve(data_.Properties.size());
    for (const TFormPropertyPlace& place : data_.Properties)
        names.push_back(data_.PropertyName(place));
    return names;
}

std::vector<TFormProperty> TFormNode::Properties() const {
    std::vector<TFormProperty> properties;
    properties.reserve(data_.Properties.size());
    for (const TFormPropertyPlace& place : data_.Properties)
        Append(place, properties);
    return properties;
}

std::vector<TFormProperty> TFormNode::TextProperties() const {
    std::vector<TFormProperty> properties;
    for (const TFormPropertyPlace& place : data_.Properties)
        if (data_.MayHoldTexts(place)) Append(place, properties);
    return properties;
}

void TFormNode::Append(const TFormPropertyPlace& place, std::vector<TFormProperty>& properties) const {
    TFormProperty& property = properties.emplace_back();
    property.Name = data_.PropertyName(place);
    if (place.Change)
        property.Value = place.Change->Value;
    else
        ReadValue(*data_.File, place.Value, property.Value);
}

std::optional<TFormValue> TFormNode::Find(std::string_view name) const {
    const std::size_t index = data_.FindProperty(name);
    if (index == kNoProperty) return std::nullopt;
    return data_.PropertyValue(data_.Properties[index]);
}

}  // namespace tml
