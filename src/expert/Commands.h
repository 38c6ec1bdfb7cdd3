#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Mlruntime.h"

namespace tml {

class TfrmmlLang;
struct TContext;
struct TSubjects;

/// Where a command of the main window can be reached; a command may be in several places.
enum TCommandPlaces : unsigned { plFile = 1, plTools = 2, plHelp = 4, plPopup = 8, plToolBar = 16 };

enum class TSubMenu { None, SaveLoad, Source, ConstSection, HardCoded };

/// One row of the table of commands.
struct TCommand {
    std::string_view Name;
    std::string_view Caption;
    std::string_view ShortCut = {};
    /// Chooses when the command is enabled, see TfrmmlLang::CheckEnableActions.
    int Tag = 0;
    unsigned Places = 0;
    TSubMenu SubMenu = TSubMenu::None;
    /// nullptr for a command of the window itself, and for one that the system does not have yet: that one is
    /// shown and never enabled.
    void (*Handler)(TContext&, TSubjects&) = nullptr;
    std::string_view ButtonCaption = {};
    bool PascalOnly = false;  ///< hidden while a C++ unit is selected
    /// For a command without rows that is not always available; nullptr where its tag alone decides.
    bool (*IsAvailable)(TContext&) = nullptr;
    std::string_view Hint = {};
    std::string_view ButtonHint = {};          ///< "short|long"
    void (TfrmmlLang::*OfWindow)() = nullptr;  ///< for a command of the window itself
    bool OfExternalFiles = false;              ///< shown on their page only
    /// For a command that is a sub-menu: the captions of its entries, and what one (0-based) does.
    std::vector<std::string> (*Entries)(IMlRuntime&) = nullptr;
    void (*OnEntry)(TContext&, int entry) = nullptr;

    bool IsBuilt() const { return Handler != nullptr || OfWindow != nullptr || OnEntry != nullptr; }
};

/// A menu that opens inside another one at the place of its first command.
struct TSubMenuRow {
    TSubMenu SubMenu;
    std::string_view Name;
    std::string_view Caption;
    bool PascalOnly = false;
};

std::span<const TSubMenuRow> AllSubMenus();

/// Every command of the main window; menus, popup, tool bar and their enabling are made from it.
std::span<const TCommand> AllCommands();

}  // namespace tml
