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

    /// For each name the place (1-based) that its language had when the window was opened, 0 for a new one.
    std::vector<int> FormerPlaces() const;

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
    TStringList formerPlaces_;  ///< as text, for they move as the names do; "" for a new one
};

/// Shows the window on a copy of the names; only mrOk changes them. formerPlaces is then set to what the
/// window tells of them.
TModalResult ConfigureLanguages(TContext& context, TStringList& names, std::vector<int>& formerPlaces);

}  // namespace tml
