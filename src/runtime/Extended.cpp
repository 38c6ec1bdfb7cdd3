#include "runtime/Extended.h"

#include <algorithm>
#include <functional>

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

/// The values, added where the item has none.
std::vector<TFormValue>& ValuesOf(TItem& item) {
    const auto found = std::find_if(item.begin(), item.end(), [](const TFormProperty& property) {
        return SameText(property.Name, kValues) && property.Value.Kind == TFormValueKind::List;
    });
    if (found != item.end()) return found->Value.Items;
    item.push_back({kValues, TFormValue::Strings({})});
    return item.back().Value.Items;
}

void ForEachItem(IOTAComponent& lang, const std::function<void(TItem&)>& change) {
    auto value = ReadProp(lang, kExtended);
    if (!value || value->Kind != TFormValueKind::Collection) return;
    const TFormValue before = *value;
    for (TItem& item : value->Collection)
        change(item);
    if (!(*value == before)) lang.SetPropValue(kExtended, *value);
}

/// What the form shows at a path; nullptr for a property that it does not hold.
const TPropertyText* Find(const std::vector<TPropertyText>& texts, std::string_view path) {
    const auto found = std::find_if(texts.begin(), texts.end(), [&](const TPropertyText& text) {
        return SameText(text.Path, WithoutStrings(path));
    });
    return found == texts.end() ? nullptr : &*found;
}

}  // namespace

void UpdateExtended(IOTAComponent& lang, const TFormParts& parts, int active) {
    ForEachItem(lang, [&](TItem& item) {
        const TFormPart* part = parts.Find(TextOf(item, "Component"));
        if (part == nullptr) return;
        const std::vector<TPropertyText> texts = TextsOfProperties(part->Properties);
        const TPropertyText* text = Find(texts, TextOf(item, "Property"));
        if (text == nullptr) return;
        std::vector<TFormValue>& values = ValuesOf(item);
        const auto place = static_cast<std::size_t>(active);
        // As in a table: a form that shows the base text says nothing about another language.
        if (place > 1 && !values.empty() && values.front().Text == text->Text) return;
        while (values.size() < place)
            values.push_back(TFormValue::String({}));
        values[place - 1] = TFormValue::String(text->Text);
    });
}

void ClearExtended(IOTAComponent& lang) {
    ForEachItem(lang, [](TItem& item) {
        std::vector<TFormValue>& values = ValuesOf(item);
        for (std::size_t i = 1; i < values.size(); ++i)
            values[i] = TFormValue::String({});
    });
}

std::vector<TExtendedText> ReadExtended(IOTAComponent& lang) {
    std::vector<TExtendedText> texts;
    const auto value = ReadProp(lang, kExtended);
    if (!value || value->Kind != TFormValueKind::Collection) return texts;
    for (TItem item : value->Collection) {
        TExtendedText text{
            TextOf(item, "Component"), std::string(WithoutStrings(TextOf(item, "Property"))), {}};
        for (const TFormValue& one : ValuesOf(item))
            text.Values.push_back(one.Text);
        texts.push_back(std::move(text));
    }
    return texts;
}

void MoveExtended(IOTAComponent& lang, const std::vector<int>& former) {
    ForEachItem(lang, [&](TItem& item) {
        std::vector<TTableValue> texts;
        for (TFormValue& value : ValuesOf(item))
            texts.push_back({std::move(value.Text)});
        std::vector<TFormValue>& values = ValuesOf(item);
        values.clear();
        for (TTableValue& text : MovedValues(texts, former))
            values.push_back(TFormValue::String(std::move(text.Text)));
    });
}

}  // namespace tml
