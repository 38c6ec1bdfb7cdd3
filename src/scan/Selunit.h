#pragma once

#include <string>

#include "core/Context.h"
#include "windows/Boxes.h"

namespace tml {

/// Chooses units of the project and, where their strings are to be moved, the form that receives them.
class TfrmTranslUnits : public TForm {
  public:
    /// Lists the units without a form, external files among them; the one in the code editor is selected, and
    /// the form is that of the project's settings.
    explicit TfrmTranslUnits(TContext& context);

    std::string lblUnits = "Select &Unit(s):";
    TNamesBox lbUnits;      ///< full file names, in the order of the project
    TStringList UnitNames;  ///< what the list shows of each: its path from the project's folder on
    std::string Filter;     ///< what the names of the shown units contain, without regard to case
    /// Off for a command that needs units only: the window is then as high as its list.
    bool OptionsVisible = true;
    std::string lblForm = "&Form that receives the strings:";
    TChoiceBox cbForm;

    /// At least one unit, and a form where it is asked for.
    bool OKEnabled() const;

    bool IsShown(int unit) const;
    /// A unit that is not shown is not selected.
    void SetFilter(const std::string& text);
    void lbUnitsClick() { Changed(); }
    void cbFormChange() { Changed(); }
    /// Selects what is shown.
    void SelectAll();
    void btOKClick();
    void btCancelClick();
};

}  // namespace tml
