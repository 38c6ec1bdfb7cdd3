#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "base/Stringlist.h"
#include "platform/Mlruntime.h"
#include "tables/Exclusions.h"

namespace tml {

/// The exclusion lists of a localization component as a value.
class TExclusionLists {
  public:
    TStringList& operator[](TExclusionList list) { return lists_[static_cast<std::size_t>(list)]; }
    const TStringList& operator[](TExclusionList list) const {
        return lists_[static_cast<std::size_t>(list)];
    }
    bool operator==(const TExclusionLists&) const = default;

  private:
    std::array<TStringList, kExclusionLists.size()> lists_;
};

TExclusionLists ReadExclusions(TmlCustomLang& lang);
/// Writes the lists that differ from those of the component.
void WriteExclusions(TmlCustomLang& lang, const TExclusionLists& lists);

/// Whether a line is the entry, without regard to case and blanks around it.
bool HasExclusion(const TExclusionLists& lists, TExclusionList list, std::string_view entry);
/// Adds an entry behind the others, without blanks around it. False where the list has it already.
bool AddExclusion(TExclusionLists& lists, TExclusionList list, std::string_view entry);
/// Removes every line that is the entry. False where there is none.
bool RemoveExclusion(TExclusionLists& lists, TExclusionList list, std::string_view entry);

}  // namespace tml
