#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/Context.h"

namespace tml {

/// Follows one open form. It keeps no row alive: a row is known by its id.
class TmlModuleNotifier : public IOTAFormNotifier {
  public:
    /// Registers with the module's form editor; with a row, the row holds the notifier.
    /// EmlLangSilent for a module without a form editor.
    static std::shared_ptr<TmlModuleNotifier> Create(TContext& context, TFormRows* list, TFormRow* row,
                                                     std::shared_ptr<IOTAModule> module);

    /// Leaves the form editor and lets go of it.
    void Unregister();
    /// Unregisters and parts from the row, which is about to go.
    void Detach();
    bool IsRegistered() const { return NotifierIndex > -1; }
    /// File name of the form editor, "" when not registered.
    std::string FormFileName() const;

    void AfterSave() override {}
    void BeforeSave() override {}
    void Modified() override {}
    void FormActivated() override {}
    void FormSaving() override {}
    /// The IDE destroys the module; the form editor is not asked any more.
    void Destroyed() override;
    void ComponentRenamed(TComponentHandle handle, const std::string& oldName,
                          const std::string& newName) override;

  private:
    TmlModuleNotifier(TContext& context, TFormRows* list, const TFormRow* row,
                      std::shared_ptr<IOTAModule> module);
    void PassRenameOn(TComponentHandle handle, const std::string& oldName, const std::string& newName);

    int NotifierIndex = -1;
    TContext& context_;
    TFormRows* list_;
    int rowId_;
    std::shared_ptr<IOTAModule> module_;
    std::shared_ptr<IOTAFormEditor> editor_;
};

/// What the expert does at a notification of the whole IDE.
class IFileNotified {
  public:
    virtual ~IFileNotified() = default;
    virtual void FileNotified(TOTAFileNotification notifyCode, const std::string& fileName) = 0;
    /// Files that got other bytes by an undo, a redo or a command that was taken back.
    virtual void FilesRestored(const std::vector<std::string>& fileNames) = 0;
    /// What one of the two has thrown, but for the silent end.
    virtual void FileNotificationFailed(const std::exception& error) = 0;
};

/// Follows the whole IDE for the expert; notifications wait while a command runs.
class TmlAddInNotifier : public IOTAIDENotifier, public std::enable_shared_from_this<TmlAddInNotifier> {
  public:
    TmlAddInNotifier(TCommandGate& gate, IFileNotified& owner) : gate_(gate), owner_(&owner) {}

    /// The expert goes: nothing is passed on any more.
    void Forget() { owner_ = nullptr; }

    void AfterSave() override {}
    void BeforeSave() override {}
    void Destroyed() override {}
    void Modified() override {}
    void FileNotification(TOTAFileNotification notifyCode, const std::string& fileName,
                          bool& cancel) override;
    void FilesRestored(const std::vector<std::string>& fileNames) override;
    void BeforeCompile(const std::string&, bool&) override {}
    void AfterCompile(bool) override {}
    void BeforeCompile(const std::string&, bool, bool&) override {}
    void AfterCompile(bool, bool) override {}

  private:
    void Pass(std::function<void(IFileNotified&)> notification);

    TCommandGate& gate_;
    IFileNotified* owner_;
};

}  // namespace tml
