#pragma once

#include <memory>

#include "cli/Answers.h"
#include "cli/Program.h"
#include "host/Experthost.h"

namespace tml {

/// Of the program's file.
std::string ProgramFolder();

/// What a command works in: the expert's host over the user's settings, answered from the command's options.
class TWorkplace {
  public:
    explicit TWorkplace(TProgram& program);
    ~TWorkplace();
    TWorkplace(const TWorkplace&) = delete;
    TWorkplace& operator=(const TWorkplace&) = delete;

    const THost& Host() const { return host_.Host(); }
    THeadlessIde& Ide() { return host_.Ide(); }
    TAnswers& Answers() { return answers_; }
    IOTAModuleServices& Modules() { return host_.Modules(); }
    /// Loads the expert's package.
    TmlLangExpert& LoadExpert();

    /// Opens a project, or a group at the project that the options name, and prints what is wrong with it.
    /// EBadInput for a name that is not the group's.
    void OpenProject(const std::string& project);
    /// True when something of the project was missing or unreadable.
    bool HasProblems() { return !Ide().Problems().empty(); }

  private:
    void ChooseProject(const std::string& name);

    std::string projectName_;
    std::unique_ptr<IRegistry> registry_;
    TAnswers answers_;
    TExpertHost host_;
};

}  // namespace tml
