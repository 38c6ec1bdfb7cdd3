#include "setup/Exclusionlists.h"

#include "base/Utf8.h"

namespace tml {
namespace {

int PlaceOf(const TStringList& entries, std::string_view entry) {
    for (int i = 0; i < entries.Count(); ++i)
        if (SameText(Trim(entries[i]), entry)) return i;
    return -1;
}

}  // namespace

TExclusionLists ReadExclusions(TmlCustomLang& lang) {
    TExclusionLists lists;
    for (const TExclusionList list : kExclusionLists)
        lists[list] = lang.GetExclusions(list);
    return lists;
}

void WriteExclusions(TmlCustomLang& lang, const TExclusionLists& lists) {
    for (const TExclusionList list : kExclusionLists)
        if (lang.GetExclusions(list) != lists[list]) lang.SetExclusions(list, lists[list]);
}

bool AddExclusion(TExclusionLists& lists, TExclusionList list, std::string_view entry) {
    const std::string_view trimmed = Trim(entry);
    if (trimmed.empty() || PlaceOf(lists[list], trimmed) >= 0) return false;
    lists[list].Add(std::string(trimmed));
    return true;
}

bool RemoveExclusion(TExclusionLists& lists, TExclusionList list, std::string_view entry) {
    const std::string_view trimmed = Trim(entry);
    bool found = false;
    for (int at = PlaceOf(lists[list], trimmed); at >= 0; at = PlaceOf(lists[list], trimmed)) {
        lists[list].Delete(at);
        found = true;
    }
    return found;
}

}  // namespace tml
