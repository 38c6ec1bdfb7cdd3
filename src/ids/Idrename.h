#pragma once

#include <string>
#include <vector>

#include "core/Context.h"

namespace tml {

/// A string ID that is to have another name, and where the calls follow.
struct TIDRename {
    std::string FormName;
    std::string OldID;
    std::string NewID;
    std::vector<std::string> Units = {};  ///< full file names; none: all of the project
    bool DespiteDoubts = false;           ///< uses that cannot be decided are left, not refused
};

/// What a rename has done.
struct TIDRenamed {
    int Calls = 0;
    /// Whose component has the ID; descendants are among them. None where it is called so already.
    std::vector<std::string> Forms;
    std::vector<std::string> Units;  ///< whose text has changed
    std::vector<std::string> Left;   ///< uses that were left, as "Unit2.pas:17"
};

/// Gives the string the new ID in the form's component and in those that inherit it, in the calls of all
/// units and the labels of all forms that ask for it: all of it or nothing, as one step of undo. What was
/// closed is saved and closed again. EBadInput where an ID is none, is not there or is taken, where it comes
/// from another form, and for uses of which it cannot be told whether they mean it.
TIDRenamed RenameID(TContext& context, const TIDRename& rename);
/// The same in the components alone: the calls are the business of OnChangeStrID. Forms that were closed stay
/// open and are not saved.
void RenameIDInForms(TContext& context, const TIDRename& rename);

}  // namespace tml
