#include "setup/Exclusionchanges.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "tables/Exclusionrules.h"

namespace tml {
namespace {

bool IsSmartRule(std::string_view entry) {
    const std::vector<std::string_view> names = SmartRuleNames();
    const std::string_view name = Trim(entry.substr(0, entry.find(':')));
    return std::any_of(names.begin(), names.end(),
                       [&](std::string_view known) { return SameText(known, name); });
}

std::string CountedAs(int count, const char* one, const char* many) {
    return Format("%d %s", count, count == 1 ? one : many);
}

}  // namespace

std::optional<TExclusionList> ExclusionListOf(std::string_view property) {
    const auto* const found =
        std::find_if(kExclusionLists.begin(), kExclusionLists.end(),
                     [&](TExclusionList list) { return SameText(PropertyOf(list), property); });
    return found == kExclusionLists.end() ? std::nullopt : std::optional(*found);
}

TExclusionList ListFor(std::string_view entry) {
    return IsSmartRule(entry) ? TExclusionList::SmartExcludeProps : TExclusionList::ExcludedProperties;
}

void CheckExclusion(const TExclusionChange& change) {
    const std::string_view entry = Trim(change.Entry);
    if (entry.empty() || entry == "!" || entry == ".")
        throw EBadInput("", 0, Format("the exclusion \"%s\" names nothing", change.Entry),
                        "\"!Name\" is a component, \".Caption\" a property, \"TEdit\" a class");
    if (!change.Adds || change.List != TExclusionList::SmartExcludeProps || IsSmartRule(entry)) return;
    std::string names;
    for (const std::string_view name : SmartRuleNames())
        names += (names.empty() ? "" : ", ") + std::string(name);
    throw EBadInput("", 0, Format("there is no smart rule %s", change.Entry),
                    Format("There are %s, each also with \":Class.Property\" behind it", names));
}

TExclusionLists WithChanges(const TExclusionForm& form, TExclusionLists lists,
                            const std::vector<TExclusionChange>& changes, TAddedTo addedTo) {
    for (const TExclusionChange& change : changes) {
        const bool isWanted = addedTo == TAddedTo::EveryForm ||
                              change.List == TExclusionList::SmartExcludeProps ||
                              (change.Adds && UseOf(form, change.List, change.Entry).Count() > 0);
        if (!change.Adds)
            RemoveExclusion(lists, change.List, change.Entry);
        else if (isWanted)
            AddExclusion(lists, change.List, change.Entry);
    }
    return lists;
}

std::string EffectText(const TExclusionEffect& effect) {
    std::string text;
    if (effect.Leave > 0)
        text = CountedAs(effect.Leave, "text leaves", "texts leave") + " the tables with the next update";
    if (effect.ComeBack > 0)
        text += (text.empty() ? "" : ", ") + CountedAs(effect.ComeBack, "comes back", "come back");
    if (effect.Leave == 0 && effect.ComeBack > 0)
        text = CountedAs(effect.ComeBack, "text comes", "texts come") + " back with the next update";
    if (effect.Dropped > 0)
        text += "; " + CountedAs(effect.Dropped, "translation is", "translations are") + " dropped";
    return text;
}

}  // namespace tml
