#pragma once

#include <functional>
#include <string>

#include "base/Stringlist.h"
#include "core/Externalfiles.h"
#include "core/Formslist.h"
#include "core/Gate.h"
#include "core/Settings.h"
#include "platform/Host.h"

namespace tml {

/// What the expert knows of the open project; emptied when the list is rebuilt or the project closes.
struct TProjectData {
    TStringList ProjectFiles;       ///< every file of the project
    TStringList UnitFiles;          ///< units without a form
    TStringList TranslatableUnits;  ///< the same units, for choosers that change their list
};

/// All that a command works with. It belongs to the expert and outlives every window.
struct TContext {
    TContext(const THost& host, TExpertSettings& settings) : Host(host), Settings(settings) {}
    TContext(const TContext&) = delete;
    TContext& operator=(const TContext&) = delete;

    THost Host;
    TExpertSettings& Settings;
    TFormsList Rows;
    std::function<void()> OnRowsChanged;    ///< what shows the rows is told that others changed them
    std::function<void()> ShowExpert;       ///< brings up the main window; EmlLangSilent if it is stopped
    std::function<void()> BringToTop;       ///< the main window, as it is
    std::function<void()> RebuildMenuItem;  ///< after a change of the settings that it shows
    /// Lets the person change the options; the window opens at the page of the control of this name, which
    /// has the focus.
    std::function<void(const std::string& control)> OpenOptionsAt;
    TProjectData Project;
    TmlExternalFiles ExternalFiles;
    std::string ComponentName;  ///< of the row selected last
    TCommandGate Gate;

    IDialogs& Dialogs() { return *Host.Dialogs; }
};

/// Brings the status texts up to date.
inline void UpdateStatusBar(TContext& context) {
    UpdateStatusBar(context.Rows, context.Project.UnitFiles.Count());
}

}  // namespace tml
