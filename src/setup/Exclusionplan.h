#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "setup/Exclusionform.h"

namespace tml {

// What exclusion lists mean for a form, and how they change: lists in, lists out. Nothing is written here.

/// The entry that excludes a component. The form itself, which no key names, is meant by its class.
std::string ComponentEntry(const TTextOwner& owner);
/// The entries that exclude a property of one component, of every component, and of a class; path as in
/// TOwnedText, whose indexes the last two leave out.
std::string PropertyEntry(const TTextOwner& owner, std::string_view path);
std::string EverywhereEntry(std::string_view path);
std::string ClassPropertyEntry(std::string_view className, std::string_view path);

/// A flag for each text of a form.
using TTextFlags = std::vector<bool>;

/// What one entry of the lists leaves out of a form.
struct TExclusionUse {
    TExclusionList List = TExclusionList::ExcludedProperties;
    std::string Entry;
    /// Those that the entry means; of a smart rule without those that have an entry in the tables, which
    /// stay.
    TTextFlags Texts;
    bool OfComponents = false;  ///< it means components, with all that they show

    int Count() const;
};
/// One for each line, in the order of the lists.
std::vector<TExclusionUse> UsesOf(const TExclusionForm& form, const TExclusionLists& lists);
/// What a single entry would leave out.
TExclusionUse UseOf(const TExclusionForm& form, TExclusionList list, const std::string& entry);

/// For each text the first use that leaves it out, as its index; -1 for one that is translated.
std::vector<int> ExcludedBy(const TExclusionForm& form, const std::vector<TExclusionUse>& uses);

/// What other lists do to the tables at the next update.
struct TExclusionEffect {
    int Leave = 0;     ///< texts that are excluded from then on
    int ComeBack = 0;  ///< texts that were
    int Dropped = 0;   ///< translations of those that leave

    TExclusionEffect& operator+=(const TExclusionEffect& other);
    bool operator==(const TExclusionEffect&) const = default;
};
TExclusionEffect EffectOf(const TExclusionForm& form, const TExclusionLists& before,
                          const TExclusionLists& after);

/// Lists that no longer leave out the texts with a flag; whatever else their entries meant stays excluded, by
/// narrower ones. Smart rules stay as they are: a text that one of them covers stays out.
TExclusionLists TakenBack(const TExclusionForm& form, const TExclusionLists& lists, const TTextFlags& texts);

}  // namespace tml
