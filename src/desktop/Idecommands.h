#pragma once

#include <string_view>

#include "windows/Controls.h"

namespace tml {

class TMainWindow;

/// Gives the items of the IDE's menus that the workbench has their work and adds its own; items that it
/// does not have are hidden.
void SetUpIdeMenus(TMenuItem& mainMenu, TMenuItem& editorMenu, TMainWindow& window);

/// The item of this name in any menu below, nullptr when there is none.
std::shared_ptr<TMenuItem> FindItem(const TMenuItem& menu, std::string_view name);

}  // namespace tml
