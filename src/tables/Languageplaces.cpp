#include "tables/Languageplaces.h"

#include <algorithm>
#include <string>
#include <unordered_map>

#include "base/Utf8.h"

namespace tml {

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
    for (std::size_t i = 0; i < std::min(found.size(), claimed.size()); ++i)
        if (found[i] == 0 && !claimed[i] && !wanted[static_cast<int>(i)].empty())
            found[i] = static_cast<int>(i) + 1;
    return found;
}

TStringList LostLanguages(const TStringList& present, const std::vector<int>& places) {
    TStringList lost;
    for (int i = 0; i < present.Count(); ++i)
        if (std::find(places.begin(), places.end(), i + 1) == places.end()) lost.Add(present[i]);
    return lost;
}

}  // namespace tml
