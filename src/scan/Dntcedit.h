#pragma once

#include <optional>
#include <string>

#include "core/Placement.h"
#include "windows/Boxes.h"
#include "windows/Controls.h"

namespace tml {

/// Moves names between what is available and what is selected. Whoever opens it may give the window other
/// words before it is shown, and reads lbSelected after mrOk.
class TfrmNotTranslate : public TForm {
  public:
    TfrmNotTranslate(IRegistry& registry, TStringList available, TStringList selected);

    std::string lblInstruction = "Select components that shouldn't be translated.";
    std::string lblComps = "C&omponents:";
    std::string lblSelected = "&Selected Components:";
    TNamesBox lbComps;
    TNamesBox lbSelected;
    bool btAddEnabled = false;        ///< ">", hint "Move selected"
    bool btAddAllEnabled = false;     ///< ">>", hint "Move all"
    bool btRemoveEnabled = false;     ///< "<", hint "Move selected"
    bool btRemoveAllEnabled = false;  ///< "<<", hint "Move all"
    TPlacement Placement;
    std::optional<int> LeftWidth;  ///< of the left list's pane, in pixels

    /// Reads the place that is stored.
    void FormShow() override;
    void FormClose() override;

    /// The person has selected other items.
    void SelectionChange();
    void lbCompsDblClick(int index) { MoveItem(lbComps, lbSelected, index); }
    void lbSelectedDblClick(int index) { MoveItem(lbSelected, lbComps, index); }
    void btAddClick() { MoveSelected(lbComps, lbSelected); }
    void btAddAllClick() { MoveAll(lbComps, lbSelected); }
    void btRemoveClick() { MoveSelected(lbSelected, lbComps); }
    void btRemoveAllClick() { MoveAll(lbSelected, lbComps); }
    void btOKClick();
    void btCancelClick();

  private:
    void MoveSelected(TNamesBox& from, TNamesBox& to);
    void MoveItem(TNamesBox& from, TNamesBox& to, int index);
    void MoveAll(TNamesBox& from, TNamesBox& to);

    IRegistry& registry_;
};

}  // namespace tml
