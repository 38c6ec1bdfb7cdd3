#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/Workplace.h"
#include "expert/Mlmainform.h"

namespace tml {

class TmlLangExpert;

/// A project with the expert at work: its package loaded, its main window open.
class TSession {
  public:
    TSession(TProgram& program, const std::string& project);
    ~TSession();
    TSession(const TSession&) = delete;
    TSession& operator=(const TSession&) = delete;

    THeadlessIde& Ide() { return workplace_.Ide(); }
    TAnswers& Answers() { return workplace_.Answers(); }
    TfrmmlLang& Window();
    TContext& Context() { return Window().Context; }
    IOTAModuleServices& Modules() { return workplace_.Modules(); }

    /// The rows of the forms with these names, all rows without one. EBadInput for an unknown name.
    std::vector<TFormRow*> Rows(const std::vector<std::string>& formNames);
    /// Makes this the only selected row, as a click does.
    void Select(TFormRow& row);

    /// Does the work for each row, going on behind one that fails; prints what went wrong.
    void ForEach(const std::vector<TFormRow*>& rows, const std::function<void(TFormRow&)>& work);
    /// Does the work for one subject; what goes wrong is printed under its name, and counts.
    void Attempt(const std::string& subject, const std::function<void()>& work);
    /// What the subjects that failed and the problems of the project make of the exit code.
    int ExitCode();

  private:
    /// EBadInput with the reason where an error was shown because the form is not as the project says.
    void NoteWrongForm(const TFormRow& row);
    /// Prints the errors that the system has shown since; true when there were any.
    bool PrintErrors(const std::string& subject);

    TWorkplace workplace_;
    TmlLangExpert* expert_ = nullptr;
    int attempts_ = 0;
    int failures_ = 0;
};

}  // namespace tml
