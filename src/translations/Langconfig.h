#pragma once

#include <functional>
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

    /// Asked before the window closes with mrOk; false keeps it open with what was entered.
    std::function<bool(const TfrmLangConfig&)> OnConfirm;

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
    bool FormCloseQuery() override { return ModalResult != mrOk || !OnConfirm || OnConfirm(*this); }

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

/// Asked before languages are taken, with what TfrmLangConfig tells of them.
using TConfirmLanguages = std::function<bool(const TStringList& names, const std::vector<int>& formerPlaces)>;

/// Shows the window on a copy of the names; only mrOk changes them. What confirm refuses stays open.
TModalResult ConfigureLanguages(TContext& context, TStringList& names, const TConfirmLanguages& confirm);

}  // namespace tml
