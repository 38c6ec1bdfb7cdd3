#include "runtime/Classproperties.h"

#include <algorithm>

#include "base/Utf8.h"
#include "runtime/Classes.h"
#include "tables/Propertytexts.h"

namespace tml {
namespace {

void AddWords(std::vector<std::string_view>& list, std::string_view words) {
    while (!words.empty()) {
        const std::size_t end = std::min(words.find(' '), words.size());
        list.push_back(words.substr(0, end));
        words.remove_prefix(std::min(end + 1, words.size()));
    }
}

/// The published properties that are known of a class, in the order in which streaming writes them; empty for
/// a class that is not of the family.
std::vector<std::string_view> OrderOf(std::string_view className) {
    std::vector<const TRuntimeClass*> classes;
    for (const TRuntimeClass* row = FindRuntimeClass(className); row != nullptr;
         row = FindRuntimeClass(row->Ancestor))
        classes.insert(classes.begin(), row);
    std::vector<std::string_view> order;
    if (classes.empty() || classes.front()->Ancestor != "TComponent") return order;
    order.push_back("Tag");
    for (const TRuntimeClass* row : classes)
        AddWords(order, row->Properties);
    // Where it stands in the designer comes behind what is published.
    AddWords(order, "Left Top");
    return order;
}

std::size_t RankOf(const std::vector<std::string_view>& order, std::string_view name) {
    const std::string_view plain = WithoutStrings(name);
    const auto found =
        std::find_if(order.begin(), order.end(), [&](std::string_view one) { return SameText(one, plain); });
    return static_cast<std::size_t>(found - order.begin());
}

/// Between two neighbours that it belongs between: so one that goes and comes back stands where it stood,
/// also where others are out of order. Else behind the last one that comes before it, else in front of the
/// first one that comes after it.
std::size_t PlaceInOrder(const std::vector<std::string_view>& order, const std::vector<std::string>& held,
                         std::size_t rank) {
    std::size_t behind = 0;
    std::size_t next = held.size();
    bool isNextAfter = false;
    for (std::size_t i = held.size(); i-- > 0;) {
        const std::size_t other = RankOf(order, held[i]);
        if (other == order.size()) continue;
        if (other < rank && isNextAfter) return i + 1;
        if (other < rank && behind == 0) behind = i + 1;
        isNextAfter = other > rank;
        if (isNextAfter) next = i;
    }
    return behind > 0 ? behind : next;
}

std::size_t PlaceInObject(const std::vector<std::string>& held, std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos) return held.size();
    const std::string_view object = name.substr(0, dot + 1);
    for (std::size_t i = held.size(); i-- > 0;)
        if (held[i].size() > object.size() && SameText(held[i].substr(0, object.size()), object))
            return i + 1;
    return held.size();
}

}  // namespace

std::size_t PlaceOfNewProperty(std::string_view className, const std::vector<std::string>& held,
                               std::string_view name) {
    const std::vector<std::string_view> order = OrderOf(className);
    const std::size_t rank = RankOf(order, name);
    return rank < order.size() ? PlaceInOrder(order, held, rank) : PlaceInObject(held, name);
}

}  // namespace tml
