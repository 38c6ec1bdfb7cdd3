#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/Errors.h"
#include "base/Files.h"
#include "ide/Journal.h"
#include "ide/Module.h"
#include "ide/Notifierlist.h"
#include "ide/Project.h"
#include "platform/Mlruntime.h"
#include "platform/Toolsapi.h"

namespace tml {

/// The open modules and the project: module services and notifications.
class TModules : public IOTAModuleServices, public IOTAServices, public ICommandFiles {
  public:
    TModules(IFileSystem& files, IMlRuntime& runtime);
    ~TModules() override;
    TModules(const TModules&) = delete;
    TModules& operator=(const TModules&) = delete;

    std::shared_ptr<IOTAModule> FindModule(const std::string& fileName) override;
    std::shared_ptr<IOTAModule> FindFormModule(const std::string& formName) override;
    std::shared_ptr<IOTAModule> OpenModule(const std::string& fileName, bool show) override;
    std::shared_ptr<IOTASourceEditor> GetCurrentSourceEditor() override;
    std::shared_ptr<IOTAProject> GetActiveProject() override;
    std::shared_ptr<IOTAProjectGroup> GetMainProjectGroup() override { return group_; }
    std::unique_ptr<ICommandScope> BeginCommand(const std::string& title) override;
    void ApplyChangeSet(const TChangeSet& changes) override;

    ICommandFiles& GetFiles() override { return *this; }

    std::optional<std::string> ReadFile(const std::string& fileName) override;
    bool ReadParts(const std::string& fileName, const TPassPart& pass) override;
    void WriteFile(const std::string& fileName, std::string bytes) override;
    void RemoveFile(const std::string& fileName) override;

    int AddNotifier(std::shared_ptr<IOTAIDENotifier> notifier) override;
    void RemoveNotifier(int index) override { notifiers_.Remove(index); }

    static constexpr int kFormEditor = -1;

    /// Told why a module cannot be opened, as a person sees it, whoever asked for it.
    std::function<void(const EBadInput&)> OnError;

    TJournal& Journal() { return journal_; }
    const std::vector<std::shared_ptr<TModule>>& Open() const { return modules_; }
    /// The unit's files by one of them, open or not.
    std::vector<std::string> FilesOfUnit(const std::string& fileName);
    /// The open module that the file belongs to, nullptr without one.
    std::shared_ptr<TModule> Find(const std::string& fileName);
    /// editor: of a source, or kFormEditor.
    void SetCurrent(const std::shared_ptr<TModule>& module, int editor = 0);
    std::shared_ptr<IOTAEditor> CurrentEditor() const;
    // See THeadlessIde.
    void KeepNoHistory() { journal_.KeepNoHistory(); }
    std::function<void(const std::string& title, const std::vector<std::string>& fileNames)> OnWritten;
    std::shared_ptr<IOTAModule> OpenText(const std::string& fileName);
    std::string DiffToDisk(const std::string& fileName);
    void AcceptDisk(const std::string& fileName);
    void CloseModule(const std::shared_ptr<TModule>& module);
    void CloseAll();

    /// The projects take effect; the active one is announced.
    void SetProjects(std::shared_ptr<TProjectGroup> group);
    /// Announces the closing of projects and group while they can still be asked, then forgets them.
    void ForgetProjects();

  private:
    /// The upper-cased path behind symbolic links: one file is one module, whatever path leads there.
    const std::string& KeyOf(const std::string& fileName);
    /// A unit and the code page of the project that names it.
    struct TFoundUnit {
        TProjectUnit Unit;
        std::string CodePage;
    };
    TFoundUnit FindUnit(const std::string& fileName);
    std::shared_ptr<TModule> OpenClosed(const std::string& fileName);
    /// A form that is open as a text makes room for its unit; EBadInput where it is not saved.
    void CloseText(const std::string& formFile);
    void ExpectNoNamesake(const std::string& fileName, const std::string& found);
    TModuleFiles ReadFiles(const TFoundUnit& found);
    std::shared_ptr<TSourceBuffer> ReadSource(const std::string& fileName, const std::string& codePage);
    std::shared_ptr<TFormDocument> ReadForm(const std::string& fileName, const std::string& codePage);
    /// What the disk holds, and what the running command has made of it; most often the same.
    struct TBytesRead {
        std::shared_ptr<const std::string> OnDisk, Now;
    };
    TBytesRead ReadBytes(const std::string& fileName);
    std::optional<std::string> ReadOnDisk(const std::string& fileName);
    void AttachDesigner(const std::shared_ptr<TModule>& module);
    void Register(const std::shared_ptr<TModule>& module);
    void Unregister(const std::shared_ptr<TModule>& module);
    void NoteFormName(const std::shared_ptr<TModule>& module);
    void ForgetFormName(const TModule& module);
    /// The root of a form of the project, opened if need be for the module that asks; nullptr without one.
    std::shared_ptr<IOTAComponent> FindForm(const std::string& formName, const std::weak_ptr<TModule>& user);
    /// Projects of a group may have forms of one name: the active one's are meant.
    bool IsOfActive(TModule& module) const;
    bool IsProjectFile(const std::string& fileName) const;
    void Write(const std::vector<TStagedFile>& staged);
    void TellRestored(const std::vector<std::string>& fileNames);
    /// False when a notifier refuses.
    bool Announce(TOTAFileNotification code, const std::string& fileName);

    IFileSystem& files_;
    IMlRuntime& runtime_;
    TJournal journal_;
    TNotifierList<IOTAIDENotifier> notifiers_;
    std::vector<std::shared_ptr<TModule>> modules_;
    std::unordered_map<std::string, std::string> keys_;  ///< by path as asked for
    /// By key of each of the module's files.
    std::unordered_map<std::string, std::shared_ptr<TModule>> byFile_;
    /// By upper-cased form name; two forms may have the same.
    std::multimap<std::string, std::shared_ptr<TModule>> byForm_;
    std::shared_ptr<TProjectGroup> group_;
    std::weak_ptr<TModule> current_;
    int currentEditor_ = 0;
};

}  // namespace tml
