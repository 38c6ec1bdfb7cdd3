#pragma once

#include <optional>
#include <string>
#include <vector>

#include "setup/Setupplan.h"

namespace tml {

/// What has become of a form of a plan.
struct TFormOutcome {
    std::string FormName;
    std::string FileName;  ///< of the unit
    std::string Problem;   ///< why it is as it was, "" where it is set up
    TStringList Done;      ///< what was done, a line each; none where there was nothing to do
    TStringList Notes;

    bool IsDone() const { return Problem.empty(); }
    bool IsIdle() const { return IsDone() && Done.Empty(); }
};

/// What has become of all of them.
struct TSetupOutcome {
    std::vector<TFormOutcome> Forms;
    TStringList Remarks;
    std::string PackageProject;  ///< file of the project that requires the package now, "" for none
    int Untouched = 0;           ///< forms whose turn did not come
    bool Stopped = false;

    int CountDone() const;
    /// That the project requires the package now, for people.
    std::string PackageText() const;
    /// Whether anything has changed.
    bool HasChanged() const;
    /// The whole outcome for people.
    std::string Report() const;
};

/// Sets up the forms of the plan, as one step of undo. A form that fails is as it was, the others stand; the
/// person may stop it, and what is done stands then, too. What cannot be written takes everything back
/// (EBadInput).
TSetupOutcome RunSetup(TContext& context, TScanMemory& memory, const TSetupPlan& plan);

/// What a run would change in the files, for git apply; nothing is changed. Of one form of the plan (0-based)
/// and what it inherits, or of all.
std::string DiffOfSetup(TContext& context, TScanMemory& memory, const TSetupPlan& plan,
                        std::optional<std::size_t> form = std::nullopt);

/// Enters the strings of forms that inherit from others of the plan, and of these others, as a run finds
/// them: the IDs that an ancestor gets are taken in its heirs. Nothing is changed; a form for which that
/// fails stays with what it has. EmlLangSilent when the person stops it.
void FindInFamilies(TContext& context, TScanMemory& memory, TSetupPlan& plan);

/// Stores the forms of dispatcher and common container among the settings of the project, where they are
/// others there.
void StoreLinks(TContext& context, const TSetupWishes& wishes);

}  // namespace tml
