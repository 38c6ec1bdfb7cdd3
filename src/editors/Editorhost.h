#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "core/Context.h"

namespace tml {

/// What the editors of components and properties work with: the host, and the expert while there is one.
struct TEditorHost {
    THost Host;
    TContext* Expert = nullptr;  ///< nullptr without one
    /// Runs a command of the expert's main window, by its name, as a click would.
    std::function<void(std::string_view command)> RunCommand = {};
    TChangeStrID OnChangeStrID = {};  ///< for the translation editor

    IDialogs& Dialogs() const { return *Host.Dialogs; }
    IMlRuntime& Runtime() const { return *Host.Runtime; }
};
using TEditorHostPtr = std::shared_ptr<const TEditorHost>;

}  // namespace tml
