#pragma once

#include <string>
#include <vector>

#include "editors/Editorhost.h"

namespace tml {

/// How a combo shows a language; an empty text, or -1, is what the combo shows by itself.
struct TLanguageInfo {
    std::string Language;
    std::string DisplayText;
    std::string FontName;
    std::string Charset;  ///< identifier
    int ImageIndex = -1;  ///< of the combo's images

    bool operator==(const TLanguageInfo&) const = default;
};

/// Edits how a combo shows its languages.
class TfrmMlLangComboEditor : public TForm {
  public:
    /// reason tells why there are no languages, where there are none.
    explicit TfrmMlLangComboEditor(std::vector<TLanguageInfo> languages, std::string reason = {});

    std::vector<TLanguageInfo> lbLanguages;
    std::string lblReason;
    int ItemIndex = 0;  ///< of the language whose settings are shown; -1 where there is none

    /// nullptr where there is none. After a change of what it holds Changed is to be called.
    TLanguageInfo* Current();
    void lbLanguagesClick(int index);
    void btnOKClick() { Close(mrOk); }
    void btnCancelClick() { Close(mrCancel); }
};

/// Shows the window on a combo; true when it was closed with OK, and the combo has the settings then.
bool EditComboSettings(const TEditorHost& host, IOTAComponent& combo);

}  // namespace tml
