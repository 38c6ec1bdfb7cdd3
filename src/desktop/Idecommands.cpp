#include "desktop/Idecommands.h"

#include <algorithm>
#include <array>

#include "desktop/Mainwindow.h"
#include "windows/Shortcuts.h"

namespace tml {
namespace {

/// A command of the workbench in the menus of the IDE. An item of the name that is there already gets the
/// work, otherwise the item is added.
struct TIdeCommand {
    std::string_view Section;
    std::string_view Name;
    std::string_view Caption;  ///< of an item that is added
    std::string_view ShortCut;
    void (TMainWindow::*Execute)();
    std::string_view Hint = {};
};

constexpr std::array kCommands{
    TIdeCommand{"FileMenu", "Open1", "", "Ctrl+O", &TMainWindow::AskProject, "Open a project"},
    TIdeCommand{"FileMenu", "Save1", "", "Ctrl+S", &TMainWindow::Save, "Save this file and its form"},
    TIdeCommand{"FileMenu", "SaveAll1", "", "Shift+Ctrl+S", &TMainWindow::SaveAll, "Save all files"},
    TIdeCommand{"FileMenu", "Close1", "", "Ctrl+F4", &TMainWindow::CloseFile},
    TIdeCommand{"FileMenu", "CloseProject1", "Close P&roject", "", &TMainWindow::CloseProject},
    TIdeCommand{"FileMenu", "Exit1", "", "Ctrl+Q", &TMainWindow::Quit},
    TIdeCommand{"EditMenu", "Undo1", "", "Ctrl+Z", &TMainWindow::Undo, "Undo the last step of this file"},
    TIdeCommand{"EditMenu", "Redo1", "", "Shift+Ctrl+Z", &TMainWindow::Redo},
    TIdeCommand{"EditMenu", "Cut1", "", "Ctrl+X", &TMainWindow::Cut},
    TIdeCommand{"EditMenu", "Copy1", "", "Ctrl+C", &TMainWindow::Copy},
    TIdeCommand{"EditMenu", "Paste1", "", "Ctrl+V", &TMainWindow::Paste},
    TIdeCommand{"EditMenu", "SelectAll1", "Select &All", "", &TMainWindow::SelectAll},
    TIdeCommand{"SearchMenu", "Find1", "", "Ctrl+F", &TMainWindow::Find},
    TIdeCommand{"SearchMenu", "FindNext1", "Find &Next", "F3", &TMainWindow::FindNext},
    TIdeCommand{"SearchMenu", "FindPrevious1", "Find &Previous", "Shift+F3", &TMainWindow::FindPrevious},
    TIdeCommand{"SearchMenu", "GotoLine1", "", "Ctrl+G", &TMainWindow::GoToLine},
    TIdeCommand{"ViewsMenu", "ProjectManager1", "", "Ctrl+Alt+P", &TMainWindow::ShowProjectManager},
    TIdeCommand{"ViewsMenu", "Messages1", "&Messages", "Ctrl+Alt+M", &TMainWindow::ShowMessages},
    TIdeCommand{"ProjectMenu", "Reload1", "&Reload Project", "", &TMainWindow::ReloadProject},
    TIdeCommand{"HelpMenu", "Contents1", "", "F1", &TMainWindow::HelpContents},
    TIdeCommand{"HelpMenu", "About1", "", "", &TMainWindow::About},
};

constexpr std::array kEditorCommands{
    TIdeCommand{"", "Cut1", "", "Ctrl+X", &TMainWindow::Cut},
    TIdeCommand{"", "Copy1", "", "Ctrl+C", &TMainWindow::Copy},
    TIdeCommand{"", "Paste1", "", "Ctrl+V", &TMainWindow::Paste},
};

void Bind(TMenuItem& section, const TIdeCommand& command, TMainWindow& window) {
    auto item = FindItem(section, command.Name);
    if (item == nullptr) {
        item = std::make_shared<TMenuItem>();
        item->Name = command.Name;
        item->Caption = command.Caption;
        section.Items.push_back(item);
    }
    item->ShortCut = TextToShortCut(command.ShortCut);
    item->Hint = command.Hint;
    item->OnClick = [&window, execute = command.Execute] { (window.*execute)(); };
}

void HideUnbound(TMenuItem& menu) {
    for (const auto& item : menu.Items)
        item->Visible = item->OnClick != nullptr || item->Caption == "-";
}

/// A separator that would stand last or first among what is shown.
void HideLooseSeparators(TMenuItem& menu) {
    const auto isShown = [](const auto& item) { return item->Visible && item->Caption != "-"; };
    for (auto item = menu.Items.begin(); item != menu.Items.end(); ++item)
        if ((*item)->Caption == "-")
            (*item)->Visible = std::any_of(menu.Items.begin(), item, isShown) &&
                               std::any_of(item, menu.Items.end(), isShown);
}

}  // namespace

std::shared_ptr<TMenuItem> FindItem(const TMenuItem& menu, std::string_view name) {
    for (const auto& item : menu.Items) {
        if (item->Name == name) return item;
        if (auto found = FindItem(*item, name)) return found;
    }
    return nullptr;
}

void SetUpIdeMenus(TMenuItem& mainMenu, TMenuItem& editorMenu, TMainWindow& window) {
    for (const TIdeCommand& command : kCommands)
        if (const auto section = FindItem(mainMenu, command.Section)) Bind(*section, command, window);
    for (const TIdeCommand& command : kEditorCommands)
        Bind(editorMenu, command, window);
    for (const auto& section : mainMenu.Items) {
        HideUnbound(*section);
        HideLooseSeparators(*section);
    }
    HideUnbound(editorMenu);
    HideLooseSeparators(editorMenu);
    const auto file = FindItem(mainMenu, "FileMenu");
    auto recent = std::make_shared<TMenuItem>();
    recent->Name = "RecentProjects1";
    recent->Caption = "Recent &Projects";
    file->Insert(2, recent);
    // The way out stands last.
    const auto exit = FindItem(*file, "Exit1");
    file->Remove(exit.get());
    file->Items.push_back(exit);
}

}  // namespace tml
