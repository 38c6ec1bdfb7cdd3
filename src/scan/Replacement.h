#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "source/Language.h"

namespace tml {

/// The component that receives the strings, as the scanned unit names it.
struct TComponentReference {
    std::string FormName;
    std::string ComponentName;
    bool WithForm = false;  ///< AddFormName is on, or a unit other than the form's own is scanned
    std::string FormClass;  ///< "T" and the form's name when empty

    /// "mlLang1", "Form1.mlLang1" or "Form1->mlLang1".
    std::string Text(const TLanguage& language) const;
    std::string ClassName() const { return FormClass.empty() ? "T" + FormName : FormClass; }
};

/// Whether a form of the project has a component of this name, which every unit may call: Form1.mlLang1. No
/// case counts.
using TFormComponents = std::function<bool(std::string_view form, std::string_view component)>;

/// How a call is written.
struct TCallStyle {
    const TLanguage* Language = &kPascal;
    std::string Reference;  ///< TComponentReference::Text
    std::string ReplaceMethod = "GetTextOrDefault(";
    int CommentsLength = 0;  ///< in characters; 0 writes the whole text
    bool NoCommentsInSources = false;
    bool CommentsNest = false;  ///< a comment opener in the text would open one
    std::string Encoding;       ///< of the file where it cannot hold every character, else ""
};

/// The call that fetches the text by its ID, with ";" behind it when it ends a statement.
std::string ReplacementText(const TCallStyle& style, std::string_view id, std::string_view text,
                            bool endStatement = false);

}  // namespace tml
