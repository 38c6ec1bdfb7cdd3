#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/Context.h"
#include "core/Notifiers.h"
#include "expert/Subjects.h"
#include "platform/Registration.h"

namespace tml {

class TfrmmlLang;

/// The one expert object: its menu item in the IDE, its settings, and the life of the main window.
class TmlLangExpert : public IOTAWizard, public IFileNotified {
  public:
    /// Reads the settings, makes the menu item and registers with the IDE. EConvertError for a stored
    /// number that is none; nothing is registered then.
    explicit TmlLangExpert(const THost& host);
    ~TmlLangExpert() override;
    TmlLangExpert(const TmlLangExpert&) = delete;
    TmlLangExpert& operator=(const TmlLangExpert&) = delete;

    void AfterSave() override {}
    void BeforeSave() override {}
    void Destroyed() override {}
    void Modified() override {}
    std::string GetIDString() override;
    std::string GetName() override;
    std::string GetAuthor();
    std::string GetComment() { return {}; }
    std::string GetPage() { return {}; }
    std::vector<TWizardState> GetState() override { return {}; }
    /// Does nothing: the expert is driven by its own menu item.
    void Execute() override {}

    /// Creates the menu item in the IDE's main menu, where that has the section for it.
    void Configure();
    /// Opens the main window on the active project, or brings it up and reads the project again. False, with
    /// an empty list, when the person has stopped the reading.
    bool RunItemClick();
    /// Makes a project of the group the active one and opens the main window on it; it is read once. False as
    /// RunItemClick.
    bool Activate(IOTAProjectGroup& group, const std::shared_ptr<IOTAProject>& project);
    /// Forgets the open project.
    void ProjectClosed();
    void InitializeProjectSettings(const std::string& projectFileName);
    void DestroyProjectSettings();
    /// Entry points that do nothing, on purpose: the main window's commands save and load.
    void SaveProjectTranslations(const std::string& /*fileName*/) {}
    void LoadProjectTranslations(const std::string& /*fileName*/) {}
    void InstallEditorPopupMenu();
    void RemoveEditorPopupMenu();
    /// Takes the expert's menus away; no stored setting is touched.
    void RemoveSettings();

    void FileNotified(TOTAFileNotification notifyCode, const std::string& fileName) override;
    void FilesRestored(const std::vector<std::string>& fileNames) override;
    void FileNotificationFailed(const std::exception& error) override { context_.Dialogs().NoteError(error); }

    TExpertSettings& Settings() { return settings_; }
    TContext& Context() { return context_; }
    TSubjects& Subjects() { return subjects_; }
    TmlExternalFiles& ExternalFiles() { return context_.ExternalFiles; }
    /// The main window for who shows it, nullptr while it is closed. A view that closes the window, or the
    /// host that it is docked in, calls its FormClose.
    TfrmmlLang* Window();

  private:
    void CreateMenuItem(TMenuItem& mainMenu);
    void RebuildMenus();
    void FreeMenuItem();
    void CreateMainWindow();
    bool FindDockHostClass();
    void DockMainWindow();
    void MainWindowClosed();
    /// False, with an empty list, when the person has stopped it.
    bool FillList(IOTAProject& project);
    bool ReadForms(IOTAProject& project);
    /// The list is filled; current is the source in front, nullptr without one.
    void ShowProject(IOTASourceEditor* current);
    void OpenProjectForms();
    void SortAgain();
    void SelectRowOf(const std::string& sourceFile);
    void FileOpened(const std::string& fileName);
    void FileClosing(const std::string& fileName);
    void RowsChanged();
    void ForgetNotifierOf(const std::string& formFile);

    THost host_;
    TExpertSettings settings_;
    TContext context_;
    TSubjects subjects_;
    std::uint8_t menuRebuildCount_ = 0;
    std::vector<std::shared_ptr<TmlModuleNotifier>> moduleNotifiers_;
    std::shared_ptr<TMenuItem> menuItem_;
    std::vector<std::shared_ptr<TMenuItem>> editorItems_;
    IOTAServices* services_ = nullptr;
    std::shared_ptr<TmlAddInNotifier> addInNotifier_;
    int notifierIndex_ = -1;
    std::string dockHostClass_;
    bool activates_ = false;  ///< a project, which it reads by itself
};

/// Creates the expert and hands it to the IDE, which holds it. One lives at a time.
TmlLangExpert& ExpRegister(const THost& host, IRegistration& registration);
/// What is left to do when the IDE has released the expert: the common library goes last.
void Finalize(const THost& host);
/// The package by which an IDE loads the expert; loaded is told of it.
TPackage MakePackage(const THost& host, std::function<void(TmlLangExpert&)> loaded = {});

}  // namespace tml
