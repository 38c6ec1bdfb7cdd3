#include "tables/Languageplaces.h"

#include <algorithm>
#include <string>
#include <unordered_map>

#include "base/Utf8.h"
#include "tables/Languages.h"

namespace tml {
namespace {

/// True for a language (0-based) that nobody has named.
bool IsUnnamed(const TStringList& names, int index) {
    return names[index].empty() || SameText(names[index], GeneratedLangName(index + 1));
}

}  // namespace

std::vector<int> PlacesOfLanguages(const TStringList& present, const TStringList& wanted) {
    std::unordered_multimap<std::string, int> places;
    for (int i = 0; i < present.Count(); ++i)
        places.emplace(UpperCase(present[i]), i + 1);
    std::vector<int> found(wanted.Items().size());
    std::vector<bool> claimed(present.Items().size());
    for (int i = 0; i < wanted.Count(); ++i) {
        const auto [begin, end] = places.equal_range(UpperCase(wanted[i]));
        if (wanted[i].empty() || begin == end) continue;
        // Of languages of one name the first is the first.
        const auto first = std::min_element(
            begin, end, [](const auto& left, const auto& right) { return left.second < right.second; });
        found[static_cast<std::size_t>(i)] = first->second;
        claimed[static_cast<std::size_t>(first->second) - 1] = true;
        places.erase(first);
    }
    for (int i = 0; i < std::min(wanted.Count(), present.Count()); ++i) {
        const auto place = static_cast<std::size_t>(i);
        if (found[place] == 0 && !claimed[place] && !wanted[i].empty() && IsUnnamed(present, i))
            found[place] = i + 1;
    }
    return found;
}

TStringList LostLanguages(const TStringList& present, const std::vector<int>& places) {
    TStringList lost;
    for (int i = 0; i < present.Count(); ++i)
        if (std::find(places.begin(), places.end(), i + 1) == places.end()) lost.Add(present[i]);
    return lost;
}

}  // namespace tml
