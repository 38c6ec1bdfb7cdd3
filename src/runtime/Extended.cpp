#include "runtime/Extended.h"

#include <algorithm>
#include <optional>

#include "base/Utf8.h"
#include "runtime/Componentprops.h"
#include "tables/Propertytexts.h"
#include "tables/Table.h"

namespace tml {
namespace {

constexpr const char* kExtended = "ExtendedTranslations";
constexpr const char* kValues = "Values.Strings";

using TItem = std::vector<TFormProperty>;

std::string TextOf(const TItem& item, std::string_view name) {
    for (const TFormProperty& property : item)
        if (SameText(property.Name, name)) return property.Value.Text;
    return {};
}

/// nullptr where the item has none.
template <typename Item>
auto FindValues(Item& item) -> decltype(&item.front().Value) {
    for (auto& property : item)
        if (SameText(property.Name, kValues) && property.Value.Kind == TFormValueKind::List)
            return &property.Value;
    return nullptr;
}

/// The values, added where the item has none.
TFormValue& ValuesOf(TItem& item) {
    if (TFormValue* values = FindValues(item)) return *values;
    item.push_back({kValues, TFormValue::Strings({})});
    return item.back().Value;
}

std::optional<TFormValue> ItemsOf(IOTAComponent& lang) {
    auto value = ReadProp(lang, kExtended);
    if (value && value->Kind != TFormValueKind::Collection) value.reset();
    return value;
}

/// What the form shows at a path; nullptr for a property that it does not hold.
const TPropertyText* Find(const std::vector<TPropertyText>& texts, std::string_view path) {
    const auto found = std::find_if(texts.begin(), texts.end(), [&](const TPropertyText& text) {
        return SameText(text.Path, WithoutStrings(path));
    });
    return found == texts.end() ? nullptr : &*found;
}

}  // namespace

std::vector<TExtendedItem> ReadExtended(IOTAComponent& lang) {
    std::vector<TExtendedItem> items;
    const auto value = ItemsOf(lang);
    if (!value) return items;
    for (const TItem& item : value->Collection) {
        items.push_back({TextOf(item, "Component"), TextOf(item, "Property"), {}});
        if (const TFormValue* values = FindValues(item))
            for (const TFormValue& text : values->Items)
                items.back().Values.push_back(text.Text);
    }
    return items;
}

void WriteExtended(IOTAComponent& lang, const std::vector<TExtendedItem>& items) {
    auto value = ItemsOf(lang);
    if (!value) return;
    const TFormValue before = *value;
    for (std::size_t i = 0; i < items.size(); ++i)
        if (!items[i].Values.empty() || FindValues(value->Collection[i]) != nullptr)
            ValuesOf(value->Collection[i]) = TFormValue::Strings(TStringList(items[i].Values));
    if (!(*value == before)) lang.SetPropValue(kExtended, *value);
}

void MoveExtended(IOTAComponent& lang, const std::vector<int>& former) {
    std::vector<TExtendedItem> items = ReadExtended(lang);
    for (TExtendedItem& item : items) {
        std::vector<TTableValue> texts;
        for (std::string& text : item.Values)
            texts.push_back({std::move(text)});
        item.Values.clear();
        for (TTableValue& text : MovedValues(texts, former))
            item.Values.push_back(std::move(text.Text));
    }
    WriteExtended(lang, items);
}

void UpdateExtended(std::vector<TExtendedItem>& items, const TFormParts& parts, int active) {
    const auto place = static_cast<std::size_t>(active);
    for (TExtendedItem& item : items) {
        const TFormPart* part = parts.Find(item.Component);
        if (part == nullptr) continue;
        const std::vector<TPropertyText> texts = TextsOfProperties(part->Properties);
        const TPropertyText* text = Find(texts, item.Property);
        if (text == nullptr) continue;
        // As in a table: a form that shows the base text says nothing about another language.
        if (place > 1 && !item.Values.empty() && item.Values.front() == text->Text) continue;
        item.Values.resize(std::max(item.Values.size(), place));
        item.Values[place - 1] = text->Text;
    }
}

}  // namespace tml
