#include "scan/Foundactions.h"

#include <array>

#include "scan/Found.h"
#include "tables/Textmethods.h"

namespace tml {
namespace {

using F = TfrmFound;
using TRow = TActionRow<F>;

constexpr std::array kActions{
    TRow{"ModifySource", "Modify Source", "Ctrl+Enter", &F::tbModifyClick, nullptr,
         "Applies changes and modifies source unit", "", true},
    TRow{"Cancel", "Cancel", "", &F::tbCancelClick, nullptr, "Cancels source translation"},
    TRow{"acSkipUnit", "S&kip unit", "", &F::acSkipUnit, nullptr,
         "Leaves this unit as it is and goes on with the next", "Skip"},
    TRow{"Help", "Help", "F1", nullptr, nullptr, "Displays help topic", "", true},
    TRow{"acTakeRow", "&Take or leave", "Space", &F::acTakeRow, &F::HasFoundRow,
         "Takes rows that are left out, leaves out the others", "Take/Leave"},
    TRow{"acTakeAll", "Take a&ll rows", "", &F::acTakeAll, &F::HasLeftOut},
    TRow{"acLeaveAdvised", "Leave ad&vised rows", "", &F::acLeaveAdvised, &F::HasAdvisedTaken},
    TRow{"acDeleteRow", "Delete", "Ctrl+Del", &F::acDeleteRow, &F::HasFoundRow},
    TRow{"acStartID", "Start ID...", "", &F::acStartID, &F::HasFoundRow},
    TRow{"acExclude", "Exclude", "Ctrl+E", &F::acExclude, &F::HasFoundRow},
    TRow{"acMarktoIgnore", "&Mark to Ignore", "Ctrl+Shift+M", &F::acMarktoIgnore, &F::HasUnmarkedRow, "",
         "Ignore"},
    TRow{"acRemoveIgnoreMark", "&Remove Ignore Mark", "Ctrl+Shift+R", &F::acRemoveIgnoreMark,
         &F::HasMarkedRow},
    TRow{"acSwitchDeleted", "Deleted", "", &F::acSwitchDeleted, nullptr, "Shows deleted rows"},
    TRow{"acRestoreDeletedRow", "Restore", "", &F::acRestoreDeletedRow, &F::HasDeletedRow},
    TRow{"acViewSkipped", "Excluded", "", &F::acViewSkipped, nullptr,
         "Shows the strings that were skipped, and why"},
    TRow{"acSelectRow", "&Select row", "Ctrl+M", &F::acSelectRow, &F::HasRow},
    TRow{"acInvertSelection", "&Invert selection", "Ctrl+I", &F::acInvertSelection, &F::HasRow},
    TRow{"acRemoveSelection", "Re&move selection", "", &F::acRemoveSelection, &F::HasSelection},
    TRow{"acSelectAdvised", "Select rows with an &advice", "", &F::acSelectAdvised, &F::HasAdvice},
    TRow{"acDeleteRowsContains", "Delete &rows that contains...", "", &F::acDeleteRowsContains,
         &F::HasFoundRow},
    TRow{"acTypecastPChar", "&Typecast to PChar...", "", &F::acTypecastPChar, &F::HasFoundRow},
    TRow{"acShowChange", "&Whole change", "Ctrl+D", &F::acShowChange, &F::HasChange,
         "Shows all that will be changed, or the current row again", "", true},
    TRow{"acUndo", "&Undo", "Ctrl+Z", &F::acUndo, &F::CanUndo},
    TRow{"acRedo", "Red&o", "Shift+Ctrl+Z", &F::acRedo, &F::CanRedo},
    TRow{"UseMethod", "Use method:", "", nullptr, &F::HasFoundRow},
};

}  // namespace

TActions ActionsOf(TfrmFound& window) {
    TActions actions;
    actions.All = BindActions<F>(window, kActions);
    for (const std::string_view method : mlLangGetTextMethods) {
        TAction& entry = actions.All.back().Items.emplace_back();
        entry.Caption = method;
        entry.Execute = [&window, method] { window.UseMethod(std::string(method)); };
    }
    actions.ToolBar = {"ModifySource",        "Cancel",        "", "acDeleteRow", "acExclude",
                       "acMarktoIgnore",      "acTakeRow",     "", "acStartID",   "acSwitchDeleted",
                       "acRestoreDeletedRow", "acViewSkipped", "", "Help"};
    if (window.IsInSeries()) actions.ToolBar.insert(actions.ToolBar.begin() + 2, "acSkipUnit");
    actions.Popup = {"acUndo",
                     "acRedo",
                     "",
                     "acTakeRow",
                     "acTakeAll",
                     "acLeaveAdvised",
                     "",
                     "acDeleteRow",
                     "acStartID",
                     "acExclude",
                     "",
                     "acMarktoIgnore",
                     "acRemoveIgnoreMark",
                     "",
                     "acSwitchDeleted",
                     "acRestoreDeletedRow",
                     "",
                     "acViewSkipped",
                     "acShowChange",
                     "",
                     "acSelectRow",
                     "acInvertSelection",
                     "acRemoveSelection",
                     "acSelectAdvised",
                     "",
                     "acDeleteRowsContains",
                     "acTypecastPChar",
                     "UseMethod"};
    return actions;
}

}  // namespace tml
