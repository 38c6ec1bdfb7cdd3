#include "cli/Workplace.h"

#include <filesystem>

#ifdef _WIN32
#include <windows.h>
#endif

#include "base/Errors.h"
#include "base/Utf8.h"
#include "cli/Interrupt.h"
#include "cli/Terminal.h"
#include "cli/Userregistry.h"
#include "host/Commonlibrary.h"

namespace tml {

namespace fs = std::filesystem;

std::string ProgramFolder() {
#ifdef _WIN32
    std::wstring name(32768, L'\0');
    name.resize(GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
    return fs::path(name).parent_path().string();
#else
    std::error_code ignored;
    return fs::read_symlink("/proc/self/exe", ignored).parent_path().string();
#endif
}

TWorkplace::TWorkplace(TProgram& program)
    : projectName_(program.ProjectName),
      registry_(ReadUserRegistry(program)),
      answers_(program.Yes),
      host_(*program.Files, *registry_, answers_,
            MakeCommonLibraryLoader(CommonLibraryPath(*program.Files, ProgramFolder())), false) {
    // Commands without a workplace do one thing, which a signal may end at any time.
    WatchInterrupts();
}

TWorkplace::~TWorkplace() = default;

TmlLangExpert& TWorkplace::LoadExpert() {
    host_.LoadExpert();
    return *host_.Expert();
}

void TWorkplace::OpenProject(const std::string& project) {
    Ide().OpenProject(project);
    if (!projectName_.empty()) ChooseProject(projectName_);
    for (const TProjectProblem& problem : Ide().Problems())
        PrintMessage(EBadInput(problem.FileName, problem.Line, problem.Problem, problem.Remedy).what());
}

void TWorkplace::ChooseProject(const std::string& name) {
    const auto group = Modules().GetMainProjectGroup();
    std::string names;
    for (int i = 0; i < group->GetProjectCount(); ++i) {
        const auto project = group->GetProject(i);
        const std::string file = FileNameOf(project->GetFileName());
        if (SameText(file, name) || SameText(WithExtension(file, ""), name)) {
            group->SetActiveProject(project);
            return;
        }
        names += (i == 0 ? "" : ", ") + WithExtension(file, "");
    }
    throw EBadInput(group->GetFileName(), 0, "there is no project " + name, "Choose one of " + names);
}

}  // namespace tml
