#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/Errors.h"
#include "base/Files.h"
#include "ide/Registrations.h"
#include "platform/Mlruntime.h"
#include "platform/Toolsapi.h"
#include "projects/Projectmodel.h"

namespace tml {

class TIdeState;

/// An IDE without windows over the files of a project: modules with buffers and designers, one journal of
/// undo over all of them, safe saving, menus and packages.
class THeadlessIde : public IBorlandIDEServices {
  public:
    /// With dockableForms the project manager's window has the ancestry of a dockable one. files and
    /// runtime must outlive the IDE.
    THeadlessIde(IFileSystem& files, IMlRuntime& runtime, bool dockableForms = true);
    /// Unloads the packages in reverse order; closes everything without saving.
    ~THeadlessIde() override;

    IOTAServices* GetServices() override;
    INTAServices* GetNTAServices() override;
    IOTAModuleServices* GetModuleServices() override;
    IOTAProjectManager* GetProjectManager() override;

    /// Completes what a crash left of an earlier save, then opens a project or a group of projects (the
    /// first is the active one), closing an open one. EBadInput for a file that is no project and for a group
    /// without one, the open project stays; missing or unreadable units only add to Problems.
    void OpenProject(const std::string& path);
    /// Closes all modules without saving, then the project; nothing when none is open.
    void CloseProject();
    /// What was found wrong while the project was opened.
    const std::vector<TProjectProblem>& Problems() const;

    /// What add-ins have added to the local menu of the project manager, for a node of the kind; project is
    /// that of the node, nullptr for another one.
    std::vector<std::shared_ptr<TMenuItem>> ProjectMenu(const std::string& ident,
                                                        const std::shared_ptr<IOTAProject>& project);

    /// Where the IDE shows a person why a module cannot be opened; nowhere at first.
    void ShowErrors(std::function<void(const EBadInput&)> show);
    /// For a program that ends with its command: nothing is kept to be undone, which costs as much memory as
    /// all that is written.
    void KeepNoHistory();
    /// Told what was written to the disk, and by the command, undo or redo of which title; nobody at first.
    void TellWritten(std::function<void(const std::string& title, const std::vector<std::string>&)> tell);

    /// Opens a file by itself, as the text of a source: a form that cannot be read, so that it can be mended.
    /// Opening its unit closes it again. EBadInput for a file that cannot be read at all.
    std::shared_ptr<IOTAModule> OpenText(const std::string& fileName);
    /// The open modules in the order of their opening.
    std::vector<std::shared_ptr<IOTAModule>> Modules() const;
    /// The source or form that was shown last, nullptr when its module is closed.
    std::shared_ptr<IOTAEditor> CurrentEditor() const;
    /// How an open file differs from what the disk holds of it, as a unified diff; "" where it does not.
    std::string DiffToDisk(const std::string& fileName);
    /// What the disk holds of an open file counts as known: the next save writes over it.
    void AcceptDisk(const std::string& fileName);
    /// Saves every modified file in one step: all of them or none.
    void SaveAll();

    /// Takes back the topmost step of the unit and its form ("": of all files) in all of its files, open or
    /// not, and gives its title; "" when there is nothing to take back. A closed file is written at once.
    /// EBadInput names the file that has changed since or stands in the way.
    std::string Undo(const std::string& fileName = {});
    std::string Redo(const std::string& fileName = {});

    /// Calls a package's registration; its wizards are released, then its finalization is called, when the
    /// package is unloaded. An error of the registration releases what was registered and passes on.
    void LoadPackage(const TPackage& package);
    void UnloadPackage(const std::string& name);
    /// What the loaded packages have registered for components and the palette.
    TRegistrations Registered() const;

  private:
    std::unique_ptr<TIdeState> state_;
};

}  // namespace tml
