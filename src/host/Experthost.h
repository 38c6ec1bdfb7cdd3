#pragma once

#include <memory>
#include <string>

#include "ide/Headlesside.h"
#include "platform/Host.h"
#include "projects/Listablefiles.h"

namespace tml {

class TmlLangExpert;
class TfrmmlLang;

/// What the system runs in, built alike for every program and test: a headless IDE, the run-time library and
/// the expert's package, over the files, settings, person and common library that it is given.
class TExpertHost {
  public:
    /// files, registry and dialogs must outlive the host; common may be nullptr.
    TExpertHost(IFileSystem& files, IRegistry& registry, IDialogs& dialogs,
                std::unique_ptr<ICommonLibraryLoader> common, bool dockableForms = true);
    /// Closes the project without saving and unloads the expert.
    ~TExpertHost();
    TExpertHost(const TExpertHost&) = delete;
    TExpertHost& operator=(const TExpertHost&) = delete;

    /// Loads the expert's package. Errors of its settings pass on; the IDE is usable without it.
    void LoadExpert();

    const THost& Host() const { return host_; }
    THeadlessIde& Ide() { return ide_; }
    IOTAModuleServices& Modules() { return *ide_.GetModuleServices(); }
    /// nullptr while it is not loaded.
    TmlLangExpert* Expert() const { return expert_; }
    /// The expert's main window, nullptr while it is closed.
    TfrmmlLang* ExpertWindow() const;

  private:
    TListableFiles files_;  ///< what the system looks beside units with
    std::unique_ptr<IMlRuntime> runtime_;
    std::unique_ptr<ICommonLibraryLoader> common_;
    std::unique_ptr<IClock> clock_ = MakeSystemClock();
    THeadlessIde ide_;
    THost host_;
    TmlLangExpert* expert_ = nullptr;
    std::string package_;
};

}  // namespace tml
