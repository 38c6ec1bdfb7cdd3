#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "desktop/Menubinding.h"
#include "desktop/Qtdialogs.h"
#include "host/Experthost.h"

namespace Ui {
class Mainwindow;
}

namespace tml {

class TEditorTabs;
class TExpertDock;
class TFindBar;
class TMessagePane;
class TProjectTree;

/// What the workbench is given: tests and pictures take other folders than the user's.
struct TDeskFolders {
    std::string Settings;  ///< holds the settings file
    std::string Program;   ///< the common library stands here or in ../lib/tmllang
};

/// The IDE's window: menus, project manager, code editor, messages, and the dock of the expert.
class TMainWindow : public QMainWindow {
  public:
    explicit TMainWindow(const TDeskFolders& folders);
    ~TMainWindow() override;
    TMainWindow(const TMainWindow&) = delete;
    TMainWindow& operator=(const TMainWindow&) = delete;

    /// Opens a project after asking about unsaved work; what is wrong with it goes to the messages, one
    /// that cannot be opened leaves what is open.
    void OpenProject(const QString& path);

    TExpertHost& Host() { return *host_; }
    TRunner& Runner() { return runner_; }
    TEditorTabs& Tabs() { return *tabs_; }
    TMessagePane& Messages() { return *messages_; }

    // The commands of the IDE's menus.
    void AskProject();
    void Save();
    void SaveAll();
    void CloseFile();
    void CloseProject();
    void Quit();
    void Undo();
    void Redo();
    void Cut();
    void Copy();
    void Paste();
    void SelectAll();
    void Find();
    void FindNext();
    void FindPrevious();
    void GoToLine();
    void ShowProjectManager();
    void ShowMessages();
    void ReloadProject();
    void HelpContents();
    void About();

    /// line: 1-based, 0 for the one where the cursor is. A form that cannot be read opens as a text.
    void GoTo(const std::string& file, int line);

  protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void BuildPanes();
    void BindIde();
    void BindMenus();
    void FillRecentProjects();
    void Follow();
    void FollowTitle();
    void ReportError(const std::exception& error);
    /// Lets the person decide on an open file that was written meanwhile; false leaves it as it is.
    bool AskAboutChanged(const std::string& file);
    /// Runs save, again and again while the person settles what stands in its way; false gives up.
    bool SaveAsking(const std::function<void()>& save);
    /// Shows in the status bar what was done.
    void Tell(const QString& outcome);
    /// Takes it away: it is of a project that is left.
    void ForgetOutcome();
    void TellWritten();
    void ShowWindow(TForm& form);
    /// Of a window beside the workbench.
    void ShowOpenWindow(TForm& form);
    void ShowTopic(const std::string& topic);
    void ShowLocalMenu(const QPoint& at);
    void CloseModule(const std::shared_ptr<IOTAModule>& module);
    /// False when the person wants to stay.
    bool AskToSave(const std::vector<std::shared_ptr<IOTAModule>>& modules);
    bool AskToSaveAll();

    TRunner runner_;
    TQtDialogs dialogs_;
    std::unique_ptr<IFileSystem> files_;
    std::unique_ptr<IRegistry> registry_;
    std::unique_ptr<TExpertHost> host_;
    std::unique_ptr<TPlaces> places_;
    std::unique_ptr<TViewServices> services_;
    std::unique_ptr<Ui::Mainwindow> ui_;
    TProjectTree* tree_ = nullptr;
    TEditorTabs* tabs_ = nullptr;
    TFindBar* findBar_ = nullptr;
    TMessagePane* messages_ = nullptr;
    QPointer<TExpertDock> dock_;
    std::vector<std::unique_ptr<TMenuBinding>> menus_;
    std::string project_;
    QTimer telling_;  ///< runs while the status bar tells what was done
    bool following_ = false;
    /// What has been written since it was told, and by what command.
    std::vector<std::pair<std::string, std::string>> written_;
    bool wantsExpert_ = true;  ///< opens with a project: its window was not closed by the person
};

}  // namespace tml
