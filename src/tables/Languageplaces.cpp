#include "tables/Languageplaces.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <unordered_map>
#include <utility>

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

TLanguageMoves TLanguageMoves::Of(std::vector<int> places, int active) {
    TLanguageMoves moves{std::move(places), active};
    const auto found = std::find(moves.Places.begin(), moves.Places.end(), active);
    if (active > 1 && found != moves.Places.end())
        moves.NewActive = static_cast<int>(found - moves.Places.begin()) + 1;
    return moves;
}

std::vector<int> TLanguageMoves::FirstPlaces(int places, int languages) {
    std::vector<int> first(static_cast<std::size_t>(languages));
    std::iota(first.begin(), first.begin() + std::min(places, languages), 1);
    return first;
}

int TLanguageMoves::Shown() const {
    return std::max(Places[static_cast<std::size_t>(NewActive) - 1], 1);
}

TStringList LostLanguages(const TStringList& present, const std::vector<int>& places) {
    TStringList lost;
    for (int i = 0; i < present.Count(); ++i)
        if (std::find(places.begin(), places.end(), i + 1) == places.end()) lost.Add(present[i]);
    return lost;
}

}  // namespace tml
