#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "base/Errors.h"
#include "base/Folderindex.h"
#include "cli/Workplace.h"
#include "core/Context.h"
#include "expert/Subjects.h"

namespace tml {

class TmlLangExpert;

/// A project with the expert at work: its package loaded, its forms listed.
class TSession {
  public:
    TSession(TProgram& program, const std::string& project);
    ~TSession();
    TSession(const TSession&) = delete;
    TSession& operator=(const TSession&) = delete;

    THeadlessIde& Ide() { return workplace_.Ide(); }
    TAnswers& Answers() { return workplace_.Answers(); }
    TContext& Context();
    IOTAModuleServices& Modules() { return workplace_.Modules(); }

    /// The rows of the forms with these names, all rows without one. EBadInput for an unknown name.
    std::vector<TFormRow*> Rows(const std::vector<std::string>& formNames);
    /// A group is open, and the options name none of its projects.
    bool HasSeveralProjects();
    /// Calls work for each project of a group, which is the active one then and listed; for the active one
    /// alone where the options name a project.
    void ForEachProject(const std::function<void()>& work);
    /// EBadInput, with the line, for a form file that is no form: for a command that does not open it.
    void ExpectReadable(const TFormRow& row);
    /// Runs a function that stands behind a command, as the window would: what the IDE tells meanwhile waits.
    void Run(const std::function<void(TContext&, TSubjects&)>& command);

    /// Does the work for each row, going on behind one that fails; prints what went wrong.
    void ForEach(const std::vector<TFormRow*>& rows, const std::function<void(TFormRow&)>& work);
    /// Does the work for one subject; what goes wrong is printed under its name and counts.
    void Attempt(const std::string& subject, const std::function<void()>& work);
    /// What the subjects that failed and the problems of the project make of the exit code. What they were
    /// told is printed now, when the work is done.
    int ExitCode();

  private:
    /// EBadInput with the reason where an error was shown because the form is not as the project says.
    void NoteWrongForm(const TFormRow& row);
    void AddError(const EBadInput& error);
    void TakeMessages(const std::string& subject);

    bool json_;
    bool isOneProject_;
    TWorkplace workplace_;
    TFolderIndex folders_;
    TmlLangExpert* expert_ = nullptr;
    int attempts_ = 0;
    int failures_ = 0;
    std::vector<std::string> information_;
    std::map<std::string, bool> ofFiles_;  ///< errors in files, and whether they have been told
};

}  // namespace tml
