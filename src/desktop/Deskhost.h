#pragma once

#include <memory>
#include <string>

#include "ide/Headlesside.h"
#include "platform/Host.h"

namespace tml {

class TmlLangExpert;
class TfrmmlLang;

/// What the workbench is given: tests and pictures take other folders than the user's.
struct TDeskFolders {
    std::string Settings;  ///< holds the settings file
    std::string Program;   ///< the common library stands here or in ../lib/tmllang
};

/// The host that the workbench gives the system, with the expert loaded into it.
class TDeskHost {
  public:
    /// dialogs must outlive the host.
    TDeskHost(const TDeskFolders& folders, IDialogs& dialogs);
    /// Closes the project without saving and unloads the expert.
    ~TDeskHost();
    TDeskHost(const TDeskHost&) = delete;
    TDeskHost& operator=(const TDeskHost&) = delete;

    /// Loads the expert. Errors of its settings pass on; the workbench is usable without it.
    void LoadExpert();

    const THost& Host() const { return host_; }
    THeadlessIde& Ide() { return ide_; }
    IOTAModuleServices& Modules() { return *ide_.GetModuleServices(); }
    /// nullptr while it is not loaded.
    TmlLangExpert* Expert() const { return expert_; }
    /// The expert's main window, nullptr while it is closed.
    TfrmmlLang* ExpertWindow() const;

  private:
    std::unique_ptr<IFileSystem> files_;
    std::unique_ptr<IMlRuntime> runtime_;
    std::unique_ptr<IRegistry> registry_;
    std::unique_ptr<ICommonLibraryLoader> common_;
    THeadlessIde ide_;
    THost host_;
    TmlLangExpert* expert_ = nullptr;
    std::string package_;
};

}  // namespace tml
