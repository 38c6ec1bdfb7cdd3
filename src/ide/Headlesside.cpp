#include "ide/Headlesside.h"

#include "base/Errors.h"
#include "base/Folderindex.h"
#include "ide/Menus.h"
#include "ide/Moduleservices.h"
#include "ide/Packagehost.h"
#include "ide/Projectmenus.h"
#include "projects/Projectreader.h"

namespace tml {

class TIdeState {
  public:
    TIdeState(IFileSystem& files, IMlRuntime& runtime, bool dockableForms)
        : Files(files), Modules(files, runtime), Native(dockableForms) {}

    IFileSystem& Files;
    TModules Modules;
    TNativeServices Native;
    TProjectMenus ProjectMenus;
    std::vector<TProjectProblem> Problems;
    /// Last, so that packages are unloaded while everything else still lives.
    TPackageHost Packages;
};

namespace {

std::vector<std::string> FilesOf(const TProjectSet& set) {
    std::vector<std::string> paths;
    if (!set.GroupFile.empty()) paths.push_back(set.GroupFile);
    for (const TProjectModel& project : set.Projects) {
        paths.push_back(project.FileName);
        for (const TProjectUnit& unit : project.Units)
            for (const std::string& path : {unit.FileName, unit.HeaderFile, unit.FormFile})
                if (!path.empty() && !unit.Missing) paths.push_back(path);
    }
    return paths;
}

std::shared_ptr<TProjectGroup> MakeGroup(TProjectSet& set) {
    std::vector<std::shared_ptr<TProject>> projects;
    for (TProjectModel& model : set.Projects)
        projects.push_back(std::make_shared<TProject>(std::move(model)));
    return std::make_shared<TProjectGroup>(set.GroupFile, std::move(projects));
}

}  // namespace

THeadlessIde::THeadlessIde(IFileSystem& files, IMlRuntime& runtime, bool dockableForms)
    : state_(std::make_unique<TIdeState>(files, runtime, dockableForms)) {}

THeadlessIde::~THeadlessIde() = default;

IOTAServices* THeadlessIde::GetServices() {
    return &state_->Modules;
}

INTAServices* THeadlessIde::GetNTAServices() {
    return &state_->Native;
}

IOTAModuleServices* THeadlessIde::GetModuleServices() {
    return &state_->Modules;
}

IOTAProjectManager* THeadlessIde::GetProjectManager() {
    return &state_->ProjectMenus;
}

std::vector<std::shared_ptr<TMenuItem>> THeadlessIde::ProjectMenu(
    const std::string& ident, const std::shared_ptr<IOTAProject>& project) {
    return state_->ProjectMenus.Open(ident, project);
}

void THeadlessIde::OpenProject(const std::string& path) {
    const std::string fileName = AbsolutePath(state_->Files, path);
    TProjectSet set = ReadProjectSet(state_->Files, fileName);
    RecoverStaged(state_->Files, FilesOf(set));
    CloseProject();
    state_->Problems = std::move(set.Problems);
    state_->Modules.SetProjects(MakeGroup(set));
}

void THeadlessIde::CloseProject() {
    state_->Modules.CloseAll();
    state_->Modules.ForgetProjects();
    state_->Problems.clear();
}

const std::vector<TProjectProblem>& THeadlessIde::Problems() const {
    return state_->Problems;
}

void THeadlessIde::ShowErrors(std::function<void(const EBadInput&)> show) {
    state_->Modules.OnError = std::move(show);
}

void THeadlessIde::KeepNoHistory() {
    state_->Modules.KeepNoHistory();
}

void THeadlessIde::TellWritten(
    std::function<void(const std::string& title, const std::vector<std::string>&)> tell) {
    state_->Modules.OnWritten = std::move(tell);
}

std::shared_ptr<IOTAModule> THeadlessIde::OpenText(const std::string& fileName) {
    return state_->Modules.OpenText(fileName);
}

std::vector<std::shared_ptr<IOTAModule>> THeadlessIde::Modules() const {
    return {state_->Modules.Open().begin(), state_->Modules.Open().end()};
}

std::shared_ptr<IOTAEditor> THeadlessIde::CurrentEditor() const {
    return state_->Modules.CurrentEditor();
}

std::string THeadlessIde::DiffToDisk(const std::string& fileName) {
    return state_->Modules.DiffToDisk(fileName);
}

void THeadlessIde::AcceptDisk(const std::string& fileName) {
    state_->Modules.AcceptDisk(fileName);
}

void THeadlessIde::SaveAll() {
    const auto command = state_->Modules.Journal().BeginUnlessRunning("Save all");
    for (const std::shared_ptr<TModule>& module : state_->Modules.Open())
        module->SaveDocuments();
    if (command) command->Commit();
}

std::string THeadlessIde::Undo(const std::string& fileName) {
    TModules& modules = state_->Modules;
    return modules.Journal().Undo(fileName.empty() ? std::vector<std::string>()
                                                   : modules.FilesOfUnit(fileName));
}

std::string THeadlessIde::Redo(const std::string& fileName) {
    TModules& modules = state_->Modules;
    return modules.Journal().Redo(fileName.empty() ? std::vector<std::string>()
                                                   : modules.FilesOfUnit(fileName));
}

void THeadlessIde::LoadPackage(const TPackage& package) {
    state_->Packages.Load(package);
}

TRegistrations THeadlessIde::Registered() const {
    return state_->Packages.Registered();
}

void THeadlessIde::UnloadPackage(const std::string& name) {
    state_->Packages.Unload(name);
}

}  // namespace tml
