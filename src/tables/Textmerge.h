#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tables/Table.h"

namespace tml {

/// A text of a form and its place in the tables.
struct TFormText {
    TStringsType Table = TStringsType::stCaptions;
    std::string Key;
    std::string Text;
    /// It may begin an entry; where the table has the entry already, that follows it in any case.
    bool Enters = true;
};

struct TMergeSettings {
    int Languages = 1;
    int Active = 1;  ///< the place (1-based) of the language that the form shows
    bool IgnoreRemovals = false;
    /// Which entries stay although the form has no such text; isItemGone for one whose item the form has no
    /// more.
    std::function<bool(const std::string& key, bool isItemGone)> Stays = [](const std::string&, bool) {
        return false;
    };
};

/// Brings tables up to what the form shows. Of an entry the value of the active language follows the form,
/// and where that is the base language, its translations become stale or touched; a form that shows the base
/// text in another language says nothing about that one. Entries follow their items, and a component that was
/// renamed by its texts; others that the form has no more go, new ones stand at the end in the order of the
/// form, in every language with the form's text. Strings and Locales have no texts in the form and stay.
void MergeTexts(std::vector<TTable>& tables, const std::vector<TFormText>& texts,
                const TMergeSettings& settings);

/// The text that an entry shows in the language at a place (1-based): the base text where it is empty.
const std::string& ShownText(const TTableEntry& entry, int place);

/// True for a table whose values are texts, so that a translation can be in doubt.
bool HasStates(TStringsType type);

}  // namespace tml
