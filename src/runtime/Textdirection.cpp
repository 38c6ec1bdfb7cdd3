#include "runtime/Textdirection.h"

#include "base/Languagetags.h"

namespace tml {

bool IsRightToLeft(const TLangTexts& texts, int place) {
    const auto index = static_cast<std::size_t>(place) - 1;
    const TTable& locales = texts.Tables[static_cast<std::size_t>(TStringsType::stLocales)];
    for (const TTableEntry& entry : locales.Entries())
        if (index < entry.Values.size() && !entry.Values[index].Text.empty())
            return IsRightToLeft(entry.Values[index].Text);
    return place <= texts.Languages.Count() && IsRightToLeft(LanguageTagOf(texts.Languages[place - 1]));
}

}  // namespace tml
