#include "cli/Languagenames.h"

#include "base/Stringlist.h"
#include "base/Utf8.h"

namespace tml {

std::string CheckLanguageNames(const std::string& text) {
    if (Trim(text).empty()) return "a form has at least one language";
    TStringList met;
    for (const std::string& name : TStringList::FromCommaText(text)) {
        if (Trim(name).empty()) return "a language has no name: " + text;
        if (met.IndexOf(name) >= 0) return "the language " + name + " is named twice";
        met.Add(name);
    }
    return {};
}

}  // namespace tml
