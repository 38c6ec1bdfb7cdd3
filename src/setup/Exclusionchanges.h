#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "setup/Exclusionplan.h"

namespace tml {

/// An entry that is to be in a list, or to be there no longer.
struct TExclusionChange {
    TExclusionList List = TExclusionList::ExcludedProperties;
    std::string Entry;
    bool Adds = true;
};

/// The list that a property of this name holds, without regard to case.
std::optional<TExclusionList> ExclusionListOf(std::string_view property);

/// The list that an entry belongs into by its looks: a name of a smart rule, with or without its place, is
/// one; anything else is an excluded property.
TExclusionList ListFor(std::string_view entry);

/// EBadInput, with what would do, for an entry that can mean nothing: an empty one, a smart rule that is not
/// known.
void CheckExclusion(const TExclusionChange& change);

enum class TAddedTo { EveryForm, WhereItMatches };
/// Lists of a form with the changes made. WhereItMatches: an entry that would leave out nothing is not added,
/// unless it is a smart rule.
TExclusionLists WithChanges(const TExclusionForm& form, TExclusionLists lists,
                            const std::vector<TExclusionChange>& changes, TAddedTo addedTo);

/// "3 texts leave the tables with the next update, 1 comes back; 2 translations are dropped", "" for no
/// effect.
std::string EffectText(const TExclusionEffect& effect);

}  // namespace tml
