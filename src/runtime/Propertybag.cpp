#include "runtime/Propertybag.h"

#include <utility>

#include "base/Utf8.h"
#include "runtime/Classproperties.h"
#include "tables/Propertytexts.h"

namespace tml {
namespace {

constexpr std::size_t kNotHeld = static_cast<std::size_t>(-1);

}  // namespace

std::size_t TPropertyBag::IndexOf(std::string_view name) const {
    if (index_.empty())
        for (std::size_t i = 0; i < properties_.size(); ++i)
            index_.emplace(UpperCase(properties_[i].Name), i);
    const auto found = index_.find(UpperCase(name));
    return found == index_.end() ? kNotHeld : found->second;
}

const TFormValue* TPropertyBag::Find(std::string_view name) const {
    const std::size_t index = IndexOf(name);
    return index == kNotHeld ? nullptr : &properties_[index].Value;
}

void TPropertyBag::Set(const std::string& name, TFormValue value) {
    const std::size_t index = IndexOf(name);
    if (index != kNotHeld) {
        properties_[index].Value = std::move(value);
        return;
    }
    std::vector<std::string> names;
    for (const TFormProperty& property : properties_)
        names.push_back(property.Name);
    const auto place = static_cast<std::ptrdiff_t>(PlaceOfNewProperty({}, names, name));
    properties_.insert(properties_.begin() + place, {name, std::move(value)});
    index_.clear();
}

void TPropertyBag::Remove(std::string_view name) {
    const std::size_t index = IndexOf(name);
    if (index == kNotHeld) return;
    properties_.erase(properties_.begin() + static_cast<std::ptrdiff_t>(index));
    index_.clear();
}

// The items stay where they are when the property that holds them moves.
TPropertyBag::TCollection& TPropertyBag::CollectionOf(std::string_view name) {
    const auto [place, isNew] = collections_.try_emplace(UpperCase(name));
    if (!isNew) return place->second;
    const std::size_t index = IndexOf(name);
    if (index == kNotHeld) return place->second;
    std::vector<std::vector<TFormProperty>>& items = properties_[index].Value.Collection;
    const std::vector<std::string> names = ItemNames(items);
    for (std::size_t i = 0; i < items.size(); ++i) {
        place->second.Names.emplace(UpperCase(names[i]), i);
        place->second.Items.push_back(std::make_unique<TPropertyBag>(items[i]));
    }
    return place->second;
}

TPropertyBag* TPropertyBag::Item(std::string_view collection, std::string_view item) {
    const TCollection& items = CollectionOf(collection);
    const auto found = items.Names.find(UpperCase(item));
    return found == items.Names.end() ? nullptr : items.Items[found->second].get();
}

}  // namespace tml
