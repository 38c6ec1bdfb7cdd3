#pragma once

#include <string>
#include <vector>

#include "base/Stringlist.h"
#include "platform/Formtexts.h"
#include "runtime/Formparts.h"
#include "tables/Exclusionrules.h"
#include "tables/Textmerge.h"

namespace tml {

/// What of a form belongs into tables.
struct TCollectedTexts {
    std::vector<TFormText> Texts;  ///< in the order of the form
    TStringList Notes;             ///< on what could not be read, for the person
};

/// The texts of all components but localization components. withItems: those of list views and trees, too.
TTextsOfForm AllTexts(const TFormParts& parts, bool withItems);

/// Those that the rules do not exclude.
TCollectedTexts CollectTexts(const TFormParts& parts, const TExclusionRules& rules, bool withItems);

/// The indexes of the components that a list DoNotTranslate leaves out, as they stand or with what holds
/// them.
std::vector<bool> NotTranslated(const TFormParts& parts, const TExclusionRules& rules);

}  // namespace tml
