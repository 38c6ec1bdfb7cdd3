#include "cli/Workplace.h"

#include <iostream>

#include "base/Errors.h"
#include "cli/Userregistry.h"
#include "ide/Commonlibrary.h"
#include "runtime/Runtime.h"

namespace tml {

TWorkplace::TWorkplace(TProgram& program)
    : runtime_(MakeMlRuntime()),
      registry_(OpenUserRegistry(program)),
      common_(MakeCommonLibraryLoader()),
      answers_(program.Yes),
      ide_(std::make_unique<THeadlessIde>(*program.Files, *runtime_, false)),
      host_{ide_.get(), runtime_.get(), registry_.get(), &answers_, program.Files, common_.get()} {}

TWorkplace::~TWorkplace() = default;

void TWorkplace::OpenProject(const std::string& project) {
    ide_->OpenProject(project);
    for (const TProjectProblem& problem : ide_->Problems())
        PrintMessage(EBadInput(problem.FileName, problem.Line, problem.Problem, problem.Remedy).what());
}

void PrintMessage(const std::string& text) {
    std::cout.flush();
    std::cerr << "tmllang: " << text << "\n";
}

}  // namespace tml
