#pragma once

#include <span>
#include <string_view>

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
    std::string_view ShortCut;
    /// Chooses when the command is enabled, see TfrmmlLang::CheckEnableActions.
    int Tag;
    unsigned Places;
    TSubMenu SubMenu;
    /// nullptr for a command of the window itself, and for one that the system does not have yet: that one is
    /// shown and never enabled.
    void (*Handler)(TContext&, TSubjects&);
    std::string_view ButtonCaption = {};
    bool PascalOnly = false;  ///< hidden while a C++ unit is selected
    /// For a command without rows that is not always available; nullptr where its tag alone decides.
    bool (*IsAvailable)(TContext&) = nullptr;
    std::string_view Hint = {};
    std::string_view ButtonHint = {};          ///< "short|long"
    void (TfrmmlLang::*OfWindow)() = nullptr;  ///< for a command of the window itself
    bool OfExternalFiles = false;              ///< shown on their page only

    bool IsBuilt() const { return Handler != nullptr || OfWindow != nullptr; }
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
