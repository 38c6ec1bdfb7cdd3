#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "core/Context.h"
#include "expert/Commands.h"
#include "expert/Subjects.h"
#include "windows/Filedialogs.h"

namespace tml {

/// Runs a command and, however it ends, what follows it. What the command throws passes on, but for
/// EmlLangSilent.
void RunCommand(const std::function<void()>& command, const std::function<void()>& afterwards);

/// The main window: the forms of the project and the commands on them.
class TfrmmlLang : public TForm {
  public:
    /// onClosed is called at the end of closing and may free the window.
    TfrmmlLang(TContext& context, TSubjects& subjects, std::function<void()> onClosed);
    ~TfrmmlLang() override;
    TfrmmlLang(const TfrmmlLang&) = delete;
    TfrmmlLang& operator=(const TfrmmlLang&) = delete;

    TContext& Context;
    TSubjects& Subjects;
    TFormRows& lvFormNames;
    TFormRows& lvExternalFiles;
    std::shared_ptr<TMenuItem> MainMenu;  ///< Menu of the window, or of the host that it is docked in
    std::shared_ptr<TMenuItem> pmEditor;  ///< the lists' popup menu
    std::vector<std::shared_ptr<TMenuItem>> ToolBar;
    TOpenDialog odExternalFile;
    std::string Filter;  ///< of the forms, without regard to case; "" shows all

    void FormShow() override;
    /// Stores the column widths; the window is gone afterwards.
    void FormClose() override;

    /// Enables the commands by their tags, and notes the selected row's component.
    void CheckEnableActions();
    void UpdateStatusBar();
    void lvFormNamesColumnClick(int column);
    void lvFormNamesChange();
    void lvFormNamesDblClick() { FindCommand("Translate")->Click(); }
    void lvFormNamesKeyDown(TShortCut key);
    /// row: of the forms list, 0-based.
    bool IsShown(int row) const;
    /// Shows the forms whose form, unit or file name contains the text. A row that is not shown is not
    /// selected.
    void SetFilter(const std::string& text);
    /// Nobody has chosen a width for the forms list's columns.
    bool HasDesignWidths() const;
    void SelectAll1Click();
    void StayOnTop1Click();
    void Dockable1Click();
    void HelpTopics1Click();
    void pcFormsListChange(TFormsPage page);

    /// Asks for units and adds them to the external files.
    void tbAddExternalFileClick();
    /// Takes those of the selected rows from the list; the files stay.
    void tbRemoveExternalFileClick();
    /// Shows the unit; it stays open only if it was. A file that is there already is added once more, and has
    /// one row.
    void AddExternalFile(const std::string& fileName);
    void CreateExternalListItem(const std::string& fileName);

    /// Ticks a command in the menus, or takes the tick away.
    void SetChecked(std::string_view commandName, bool checked);
    /// Runs a command by its name; std::invalid_argument for one that there is not or that is not enabled.
    /// What it throws passes on, but for EmlLangSilent.
    void Run(std::string_view commandName);

  private:
    struct TBuilt {
        const TCommand* Command;
        std::shared_ptr<TMenuItem> Item;
        bool IsButton;
    };

    void DeselectHidden();
    TMenuItem* FindCommand(std::string_view name) const;
    void BuildMenus();
    void Place(const TCommand& command, TMenuItem& menu, char number);
    TMenuItem& SubMenu(TMenuItem& menu, TSubMenu subMenu, char number);
    std::shared_ptr<TMenuItem> Build(const TCommand& command, const std::string& name, bool isButton);
    void AddEntries(const TCommand& command, TMenuItem& item);
    /// entry: of a command that is a sub-menu, 0-based.
    void Execute(const TCommand& command, int entry = -1);
    void ShowLanguageItems();

    std::function<void()> onClosed_;
    std::vector<TBuilt> built_;
    std::shared_ptr<bool> isAlive_ = std::make_shared<bool>(true);
    std::vector<std::shared_ptr<TMenuItem>> pascalOnly_;
};

}  // namespace tml
