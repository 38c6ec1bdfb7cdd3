#include "runtime/Textsetter.h"

#include <algorithm>
#include <deque>
#include <numeric>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "base/Utf8.h"
#include "runtime/Propertybag.h"
#include "tables/Fontvalue.h"
#include "tables/Itemdata.h"

namespace tml {
namespace {

/// A property by its name among those that stand together.
struct TSpot {
    TPropertyBag* Bag = nullptr;  ///< nullptr for one in an item that is not there
    std::string Name = {};
};

TSpot Locate(TPropertyBag& component, std::string_view path) {
    TPropertyBag* bag = &component;
    for (std::size_t open = 0; bag != nullptr && (open = path.find('[')) != std::string_view::npos;) {
        const std::size_t close = path.find("].", open);
        if (close == std::string_view::npos) return {};
        bag = bag->Item(path.substr(0, open), path.substr(open + 1, close - open - 1));
        path.remove_prefix(close + 2);
    }
    return {bag, std::string(path)};
}

std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (true) {
        const std::size_t end = text.find('\n');
        lines.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return lines;
        text.remove_prefix(end + 1);
    }
}

std::vector<std::string> LinesOf(const TFormValue& list) {
    std::vector<std::string> lines;
    for (const TFormValue& line : list.Items)
        lines.push_back(line.Text);
    return lines;
}

bool AreItems(const std::string& name) {
    const std::string last = name.substr(name.rfind('.') + 1);
    return SameText(last, "Items") || SameText(last, "Tabs");
}

/// The lines that a value shows. Items of a control keep their number: the base text stands in for a missing
/// one.
std::vector<std::string> ShownLines(const TSpot& spot, std::string_view text, std::string_view base) {
    std::vector<std::string> lines = LinesOf(text);
    if (!AreItems(spot.Name)) return lines;
    std::vector<std::string> items = LinesOf(base);
    std::copy_n(lines.begin(), std::min(lines.size(), items.size()), items.begin());
    return items;
}

std::string ListName(const TSpot& spot) {
    return spot.Name + ".Strings";
}

using TOrder = std::vector<std::size_t>;

/// For each of the items the line that it is, equal ones in their order; none where they are others.
std::optional<TOrder> OrderOf(const std::vector<std::string>& items, const std::vector<std::string>& lines) {
    std::unordered_map<std::string_view, std::deque<std::size_t>> places;
    for (std::size_t i = 0; i < lines.size(); ++i)
        places[lines[i]].push_back(i);
    TOrder order;
    for (const std::string& item : items) {
        const auto found = places.find(item);
        if (found == places.end() || found->second.empty()) return std::nullopt;
        order.push_back(found->second.front());
        found->second.pop_front();
    }
    return items.size() == lines.size() ? std::optional(order) : std::nullopt;
}

bool IsSorted(const TPropertyBag& bag) {
    const TFormValue* const sorted = bag.Find("Sorted");
    return sorted != nullptr && SameText(sorted->Text, "True");
}

/// Which line of the value that it should show each line of a list is; none where it shows something else. A
/// control that sorts has its items in any order.
std::optional<TOrder> ShownOrder(const TSpot& spot, const TTextChange& change) {
    const std::vector<std::string> shown = LinesOf(*spot.Bag->Find(ListName(spot)));
    const std::vector<std::string> lines = ShownLines(spot, change.From, change.Base);
    if (shown == lines) {
        TOrder order(lines.size());
        std::iota(order.begin(), order.end(), 0);
        return order;
    }
    return AreItems(spot.Name) && IsSorted(*spot.Bag) ? OrderOf(shown, lines) : std::nullopt;
}

/// The text of a control that shows its selected item.
void FollowItem(TPropertyBag& bag, const TFormValue& items, const std::vector<std::string>& lines) {
    const TFormValue* const index = bag.Find("ItemIndex");
    const TFormValue* const text = bag.Find("Text");
    if (index == nullptr || text == nullptr || index->Kind != TFormValueKind::Integer) return;
    for (std::size_t i = 0; i < std::min(items.Items.size(), lines.size()); ++i)
        if (std::to_string(i) == index->Text && items.Items[i] == *text)
            return bag.Set("Text", TFormValue::String(lines[i]));
}

void WriteLines(const TSpot& spot, const TTextChange& change) {
    const auto order = ShownOrder(spot, change);
    if (!order) return;
    std::vector<std::string> lines = ShownLines(spot, change.To, change.Base);
    if (AreItems(spot.Name)) {
        std::vector<std::string> items;
        for (const std::size_t line : *order)
            items.push_back(lines[line]);
        lines = std::move(items);
        FollowItem(*spot.Bag, *spot.Bag->Find(ListName(spot)), lines);
    }
    spot.Bag->Set(ListName(spot), TFormValue::Strings(TStringList(std::move(lines))));
}

bool ReadsLines(const TSpot& spot, const TTextChange& change) {
    return ShownOrder(spot, change).has_value();
}

bool ReadsText(const TSpot& spot, const TTextChange& change) {
    return spot.Bag->Find(spot.Name)->Text == change.From;
}

void WriteText(const TSpot& spot, const TTextChange& change) {
    spot.Bag->Set(spot.Name, TFormValue::String(change.To));
}

/// What a language does not say of a font the base language does; what neither says is as it was.
struct TFontChange {
    explicit TFontChange(const TTextChange& change)
        : From(TFontValue::FromText(change.From).Over(TFontValue::FromText(change.Base))),
          To(TFontValue::FromText(change.To).Over(TFontValue::FromText(change.Base))) {}

    TFontValue From;
    TFontValue To;
};

constexpr const char* kFontParts[] = {"Name", "Height", "Style"};

TFontValue ShownFont(const TSpot& spot) {
    TFontValue font;
    for (const std::string part : kFontParts)
        if (const TFormValue* value = spot.Bag->Find(spot.Name + '.' + part)) font.Take(part, *value);
    return font;
}

bool ReadsFont(const TSpot& spot, const TTextChange& change) {
    const TFontChange font(change);
    const TFontValue shown = ShownFont(spot);
    const auto reads = [&](const auto& is, const auto& from, const auto& to) {
        return (!from && !to) || is == from;
    };
    return shown != TFontValue() && reads(shown.Name, font.From.Name, font.To.Name) &&
           reads(shown.Height, font.From.Height, font.To.Height) &&
           reads(shown.Style, font.From.Style, font.To.Style);
}

void WriteFont(const TSpot& spot, const TTextChange& change) {
    const TFontChange font(change);
    for (const std::string part : kFontParts) {
        const std::string name = spot.Name + '.' + part;
        const auto value = font.To.Property(part);
        if (value == font.From.Property(part)) continue;
        if (value)
            spot.Bag->Set(name, *value);
        else
            spot.Bag->Remove(name);
    }
}

void WriteCharSet(const TSpot& spot, const TTextChange& change) {
    TFormValue value = TFormValue::Identifier(change.To);
    if (change.To.find_first_not_of("0123456789") == std::string::npos) value.Kind = TFormValueKind::Integer;
    spot.Bag->Set(spot.Name, value);
}

/// How a property takes a value. What reads otherwise, or is not held, has no shape.
struct TShape {
    bool (*Reads)(const TSpot& spot, const TTextChange& change);
    void (*Write)(const TSpot& spot, const TTextChange& change);
};
constexpr TShape kText = {ReadsText, WriteText};
constexpr TShape kLines = {ReadsLines, WriteLines};
constexpr TShape kFont = {ReadsFont, WriteFont};
constexpr TShape kCharSet = {ReadsText, WriteCharSet};

const TShape* ShapeOf(const TSpot& spot, TStringsType table) {
    if (spot.Bag == nullptr) return nullptr;
    if (table == TStringsType::stFonts) return &kFont;
    const TFormValue* const value = spot.Bag->Find(spot.Name);
    if (table == TStringsType::stCharSets) return value == nullptr ? nullptr : &kCharSet;
    if (value != nullptr) return value->Kind == TFormValueKind::String ? &kText : nullptr;
    const TFormValue* const list = spot.Bag->Find(ListName(spot));
    return list != nullptr && list->Kind == TFormValueKind::List ? &kLines : nullptr;
}

/// The items of list views and trees of a component.
class TItemTexts {
  public:
    explicit TItemTexts(const std::vector<TFormProperty>& properties) {
        for (const TFormProperty& property : properties)
            if (auto data = ReadItemData(property)) data_.push_back({property.Name, std::move(*data)});
        for (std::size_t i = 0; i < data_.size(); ++i)
            for (std::size_t text = 0; text < data_[i].Data.Texts().size(); ++text)
                places_.emplace(UpperCase(data_[i].Data.Texts()[text].Place), TPlace{i, text});
    }

    bool Reads(const TTextChange& change) const {
        const auto found = Find(change.Path);
        return found != places_.end() &&
               data_[found->second.Data].Data.Texts()[found->second.Text].Text == change.From;
    }
    void Write(const TTextChange& change) {
        const TPlace place = Find(change.Path)->second;
        TItems& items = data_[place.Data];
        items.IsChanged = items.Data.SetText(place.Text, change.To) || items.IsChanged;
    }
    void Store(TPropertyBag& component) const {
        for (const TItems& items : data_) {
            if (!items.IsChanged) continue;
            TFormValue value = *component.Find(items.Property);
            value.Text = items.Data.Bytes();
            component.Set(items.Property, std::move(value));
        }
    }

  private:
    struct TItems {
        std::string Property;
        TItemData Data;
        bool IsChanged = false;
    };
    struct TPlace {
        std::size_t Data;
        std::size_t Text;
    };
    using TPlaces = std::unordered_map<std::string, TPlace>;

    TPlaces::const_iterator Find(std::string_view path) const {
        return places_.find(UpperCase(path.substr(std::min(path.find('['), path.size()))));
    }

    std::vector<TItems> data_;
    TPlaces places_;  ///< by what stands behind "Items" in a key, upper-cased
};

/// A change that is to be made.
struct TOwnChange {
    const TTextChange* Change;
    TSpot Spot;
    const TShape* Shape;  ///< nullptr for one of items in binary
};

}  // namespace

void SetTexts(std::vector<TFormProperty>& properties, const std::vector<TTextChange>& changes) {
    TPropertyBag component(properties);
    TItemTexts items(properties);
    std::vector<TOwnChange> own;
    for (const TTextChange& change : changes) {
        if (change.Table == TStringsType::stListView_TreeView_Items) {
            if (items.Reads(change)) own.push_back({&change, {}, nullptr});
            continue;
        }
        TSpot spot = Locate(component, change.Path);
        const TShape* const shape = ShapeOf(spot, change.Table);
        if (shape != nullptr && shape->Reads(spot, change)) own.push_back({&change, std::move(spot), shape});
    }
    for (const TOwnChange& one : own)
        one.Shape == nullptr ? items.Write(*one.Change) : one.Shape->Write(one.Spot, *one.Change);
    items.Store(component);
}

}  // namespace tml
