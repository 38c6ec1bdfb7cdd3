#pragma once

#include <string>
#include <vector>

#include "base/Edits.h"
#include "scan/Constscan.h"

namespace tml {

/// The form whose component fetches the texts.
struct TConstForm {
    TSharedSource Source;  ///< its unit; that of the scan for a unit with its own form
    std::string ClassName;
    std::string ComponentName;
    std::string OnCreate;          ///< the handler that the form file names, "" when it names none
    std::string OnChangeLanguage;  ///< the component's, likewise

    const std::string& FileName() const { return Source->FileName(); }
};

/// What a rewrite of constants changes.
struct TConstChanges {
    TEdits Unit;                   ///< of the scanned unit
    TEdits FormUnit;               ///< of the form's unit when it is another one
    std::string OnCreate;          ///< the handler that the form file has to name, "" when it does already
    std::string OnChangeLanguage;  ///< likewise
};

/// The changes by which the constants of the kept rows become typed constants that the routine UpdateStrings
/// fills from the component: a method of the form, or a procedure of a unit without a form. The form's
/// creation handler and the component's language-change handler call it; they are made where the form has
/// none. A constant of a routine is set at the start of that routine instead. What an earlier run did
/// is kept and added to. Rows marked to be ignored are left as they are. EBadInput where the unit or the
/// form's class lacks what is needed.
TConstChanges RewriteConsts(const TmlFoundSourceStrings& kept, const TConstInput& input,
                            const std::vector<TStrRec>& records, const TConstForm& form);

/// Checks that the new text of the scanned unit fetches every kept constant by its ID, that a scan passes
/// it over, and that both handlers lead to the routine; EBadInput with file and line where not.
void ProveConsts(const TmlFoundSourceStrings& kept, const TConstInput& input,
                 const std::vector<TStrRec>& records, const TConstForm& form, const TConstChanges& changes);

}  // namespace tml
