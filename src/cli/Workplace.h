#pragma once

#include <memory>

#include "cli/Answers.h"
#include "cli/Program.h"
#include "ide/Headlesside.h"
#include "ide/Listablefiles.h"
#include "platform/Host.h"

namespace tml {

/// The host that the program gives the system: a headless IDE, the run-time library, the settings file,
/// the common library beside the program.
class TWorkplace {
  public:
    explicit TWorkplace(TProgram& program);
    ~TWorkplace();
    TWorkplace(const TWorkplace&) = delete;
    TWorkplace& operator=(const TWorkplace&) = delete;

    const THost& Host() const { return host_; }
    THeadlessIde& Ide() { return *ide_; }
    TAnswers& Answers() { return answers_; }
    IOTAModuleServices& Modules() { return *ide_->GetModuleServices(); }

    /// Opens a project, or a group at the project that the options name, and prints what is wrong with it.
    /// EBadInput for a name that is not the group's.
    void OpenProject(const std::string& project);
    /// True when something of the project was missing or unreadable.
    bool HasProblems() const { return !ide_->Problems().empty(); }

  private:
    void ChooseProject(const std::string& name);

    std::string projectName_;
    TListableFiles files_;  ///< what the system looks beside units with
    std::unique_ptr<IMlRuntime> runtime_;
    std::unique_ptr<IRegistry> registry_;
    std::unique_ptr<ICommonLibraryLoader> common_;
    TAnswers answers_;
    std::unique_ptr<THeadlessIde> ide_;
    THost host_;
};

/// Prints a message of the program to standard error.
void PrintMessage(const std::string& text);

}  // namespace tml
