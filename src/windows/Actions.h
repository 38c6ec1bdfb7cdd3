#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tml {

/// A command of a window as tool bars and menus show it.
struct TAction {
    std::string Name;
    std::string Caption;
    std::string ShortCut;             ///< as text, "" for none
    std::string Hint;                 ///< what it does where the caption does not tell
    std::string ToolText;             ///< what its tool button is called; "" is Caption
    bool KeysAnywhere = false;        ///< its keys count in the whole window, not only in the table
    std::function<bool()> IsEnabled;  ///< empty: always
    std::function<void()> Execute;    ///< empty: what the host does, which is help
    std::vector<TAction> Items;       ///< of its sub-menu
};

/// The commands of a window with their places: names, "" for a line.
struct TActions {
    std::vector<TAction> All;
    std::vector<std::string_view> ToolBar;
    std::vector<std::string_view> Popup;
};

/// A row of the table of a window's commands.
template <typename TWindow>
struct TActionRow {
    std::string_view Name;
    std::string_view Caption;
    std::string_view ShortCut;
    void (TWindow::*Execute)();                    ///< nullptr: the host does it
    bool (TWindow::*IsEnabled)() const = nullptr;  ///< nullptr: always
    std::string_view Hint = {};
    std::string_view ToolText = {};
    bool KeysAnywhere = false;
};

/// The commands of a table, bound to their window.
template <typename TWindow>
std::vector<TAction> BindActions(TWindow& window, std::span<const TActionRow<TWindow>> table) {
    std::vector<TAction> actions;
    for (const TActionRow<TWindow>& row : table) {
        TAction& action = actions.emplace_back();
        action.Name = row.Name;
        action.Caption = row.Caption;
        action.ShortCut = row.ShortCut;
        action.Hint = row.Hint;
        action.ToolText = row.ToolText;
        action.KeysAnywhere = row.KeysAnywhere;
        if (row.IsEnabled != nullptr)
            action.IsEnabled = [&window, rule = row.IsEnabled] { return (window.*rule)(); };
        if (row.Execute != nullptr)
            action.Execute = [&window, execute = row.Execute] { (window.*execute)(); };
    }
    return actions;
}

}  // namespace tml
