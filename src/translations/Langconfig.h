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

    /// For each name the one that its language had when the window was opened, "" for a new one.
    const TStringList& FormerNames() const { return formerNames_; }

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
    /// Moves names by one of the moves of a list, and what they are known by with them.
    void Move(void (*move)(TStringList&, std::vector<bool>&));
    /// Brings names up to the number; lowering the number removes none.
    void CountChanged();

    IDialogs& dialogs_;
    TStringList defaultNames_;
    TStringList formerNames_;
};

/// Shows the window on a copy of the names; only mrOk changes them. formerNames, where it is given, gets for
/// each of them the name that the language had before, "" for a new one.
TModalResult ConfigureLanguages(TContext& context, TStringList& names, TStringList* formerNames = nullptr);

}  // namespace tml
