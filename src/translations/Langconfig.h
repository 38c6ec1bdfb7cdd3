#pragma once

#include <string>
#include <vector>

#include "core/Context.h"

namespace tml {

/// Edits the number of languages and their ordered names.
class TfrmLangConfig : public TForm {
  public:
    /// defaultNames is the setting's text.
    TfrmLangConfig(IDialogs& dialogs, const std::string& defaultNames, const TStringList& names);

    std::string edLangCount = "0";
    TStringList lbLangNames;
    std::vector<bool> Selected;  ///< a flag for each name
    bool btOKEnabled = false;

    /// Takes a typed number; anything but digits is refused.
    void edLangCountChange(const std::string& text);
    void sbUp2Click() { Step(1); }
    void sbDown2Click() { Step(-1); }
    void btnMoveUpClick();
    void btnMoveDownClick();
    void btnRenameClick();
    void btnAddClick();
    void btnDeleteClick();

  private:
    void Step(int tag);
    /// Brings names up to the number; lowering the number removes none.
    void CountChanged();

    IDialogs& dialogs_;
    TStringList defaultNames_;
};

/// Shows the window on a copy of the names; only mrOk changes them.
TModalResult ConfigureLanguages(TContext& context, TStringList& names);

}  // namespace tml
