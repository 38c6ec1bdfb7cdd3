#include "cli/Session.h"

#include <utility>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "cli/Interrupt.h"
#include "cli/Terminal.h"
#include "expert/Mllangexp.h"
#include "forms/Formtree.h"

namespace tml {
namespace {

void ExpectNotStopped() {
    if (Interrupted()) throw EBadInput("", 0, "stopped", "Nothing was written");
}

}  // namespace

TSession::TSession(TProgram& program, const std::string& project)
    : json_(program.Json),
      isOneProject_(!program.ProjectName.empty()),
      workplace_(program),
      folders_(*workplace_.Host().Files) {
    Ide().ShowErrors([this](const EBadInput& error) { AddError(error); });
    Ide().KeepNoHistory();
    expert_ = &workplace_.LoadExpert();
    workplace_.OpenProject(project);
    expert_->RunItemClick();
    ExpectNotStopped();  // the list would be empty
}

TSession::~TSession() = default;

TContext& TSession::Context() {
    return expert_->Context();
}

std::vector<TFormRow*> TSession::Rows(const std::vector<std::string>& formNames) {
    std::vector<TFormRow*> rows;
    TFormRows& list = Context().Rows.FormNames;
    if (formNames.empty())
        for (const auto& row : list.Items())
            rows.push_back(row.get());
    for (const std::string& name : formNames) {
        TFormRow* found = nullptr;
        for (const auto& row : list.Items())
            if (SameText(row->FormName, name)) found = row.get();
        if (found == nullptr)
            throw EBadInput("", 0, "the project has no form " + name,
                            "\"tmllang forms PROJECT\" lists its forms");
        rows.push_back(found);
    }
    return rows;
}

void TSession::ExpectReadable(const TFormRow& row) {
    const std::string file = folders_.FormFileOf(row.FileName);
    if (!file.empty()) TFormTree::Parse(Context().Host.Files->Read(file), file);
}

bool TSession::HasSeveralProjects() {
    return !isOneProject_ && Modules().GetMainProjectGroup()->GetProjectCount() > 1;
}

void TSession::ForEachProject(const std::function<void()>& work) {
    if (!HasSeveralProjects()) return work();
    const auto group = Modules().GetMainProjectGroup();
    for (int i = 0; i < group->GetProjectCount(); ++i) {
        group->SetActiveProject(group->GetProject(i));
        expert_->RunItemClick();
        ExpectNotStopped();
        work();
    }
}

void TSession::Run(const std::function<void(TContext&, TSubjects&)>& command) {
    const TCommandGate::TCommand running(Context().Gate);
    command(Context(), expert_->Subjects());
}

void TSession::ForEach(const std::vector<TFormRow*>& rows, const std::function<void(TFormRow&)>& work) {
    for (TFormRow* row : rows)
        Attempt(row->FormName, [&] {
            try {
                work(*row);
            } catch (const EmlLangSilent&) {
                NoteWrongForm(*row);
                throw;
            }
            NoteWrongForm(*row);
        });
}

/// The system's message does not say what is wrong with the form.
void TSession::NoteWrongForm(const TFormRow& row) {
    const auto module = Answers().Errors.empty() ? nullptr : Modules().FindModule(row.FileName);
    if (module == nullptr) return;
    if (module->GetFormName().empty())
        throw EBadInput(row.FileName, 0, "the unit has no form file", "Restore it beside the unit");
    if (!SameText(module->GetFormName(), row.FormName))
        throw EBadInput(
            row.FileName, 0,
            "the project names the form " + row.FormName + ", its form file " + module->GetFormName(),
            "Correct the name in the project");
}

void TSession::Attempt(const std::string& subject, const std::function<void()>& work) {
    ExpectNotStopped();
    ++attempts_;
    Answers().ClearMessages();
    bool failed = false;
    try {
        work();
    } catch (const EmlLangSilent&) {
        failed = true;
    } catch (const EBadInput& error) {
        failed = true;
        AddError(error);
    } catch (const std::bad_alloc&) {
        failed = true;
        Answers().Errors.emplace_back(EBadInput("", 0, kNoMemory, kTooLarge).what());
    }
    TakeMessages(subject);
    failures_ += failed || !Answers().Errors.empty() ? 1 : 0;
}

void TSession::AddError(const EBadInput& error) {
    Answers().Errors.emplace_back(error.what());
    if (!error.File().empty()) ofFiles_.try_emplace(error.what(), false);
}

/// What is wrong with a file that several forms need, their ancestor's for example, is told once.
/// Information waits until all is written; with JSON it stands in a field of that.
void TSession::TakeMessages(const std::string& subject) {
    for (const std::string& error : Answers().Errors) {
        const auto ofFile = ofFiles_.find(error);
        if (ofFile != ofFiles_.end() && std::exchange(ofFile->second, true)) continue;
        PrintMessage(Format("%s: %s", subject, error));
    }
    if (json_) return;
    for (const std::string& text : Answers().Information)
        information_.push_back(Format("%s: %s", subject, text));
}

int TSession::ExitCode() {
    for (const std::string& text : information_)
        PrintMessage(text);
    information_.clear();
    if (failures_ > 0 && failures_ == attempts_) return kBadInput;
    return failures_ > 0 || workplace_.HasProblems() ? kDoneInPart : kDone;
}

}  // namespace tml
