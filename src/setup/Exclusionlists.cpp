#include "setup/Exclusionlists.h"

#include "base/Utf8.h"

namespace tml {
namespace {

int PlaceOfEntry(const TStringList& entries, std::string_view entry) {
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

bool HasExclusion(const TExclusionLists& lists, TExclusionList list, std::string_view entry) {
    return PlaceOfEntry(lists[list], Trim(entry)) >= 0;
}

bool AddExclusion(TExclusionLists& lists, TExclusionList list, std::string_view entry) {
    const std::string_view trimmed = Trim(entry);
    if (trimmed.empty() || HasExclusion(lists, list, trimmed)) return false;
    lists[list].Add(std::string(trimmed));
    return true;
}

bool RemoveExclusion(TExclusionLists& lists, TExclusionList list, std::string_view entry) {
    const std::string_view trimmed = Trim(entry);
    bool found = false;
    for (int at = PlaceOfEntry(lists[list], trimmed); at >= 0; at = PlaceOfEntry(lists[list], trimmed)) {
        lists[list].Delete(at);
        found = true;
    }
    return found;
}

}  // namespace tml
