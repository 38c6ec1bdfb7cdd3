#pragma once

#include <string>
#include <vector>

#include "platform/Formtexts.h"
#include "setup/Exclusionlists.h"

namespace tml {

/// A text of a form and what the tables hold of it.
struct TExclusionText : TOwnedText {
    bool HasEntry = false;
    int Translations = 0;  ///< of the entry, in all languages

    /// It is in the tables, or the next update enters it, unless it is excluded.
    bool IsOffered() const { return IsForReaders || HasEntry; }
};

/// All that the exclusions of a form are decided by.
struct TExclusionForm {
    std::string FormName;
    std::string FileName;  ///< of the unit
    std::vector<TTextOwner> Owners;
    std::vector<TExclusionText> Texts;
    TExclusionLists Lists;      ///< as the component has them
    bool KeepsEntries = false;  ///< removals are ignored: no entry goes

    const TTextOwner& OwnerOf(const TOwnedText& text) const {
        return Owners[static_cast<std::size_t>(text.Owner)];
    }
};

/// Reads the form of a component, which has to be open.
TExclusionForm ReadExclusionForm(TmlCustomLang& lang, std::string formName, std::string fileName);

}  // namespace tml
