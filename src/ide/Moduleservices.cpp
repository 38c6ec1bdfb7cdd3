#include "ide/Moduleservices.h"

#include <algorithm>

#include "base/Diff.h"
#include "base/Errors.h"
#include "base/Folderindex.h"
#include "base/Utf8.h"
#include "forms/Formbinary.h"
#include "ide/Changesets.h"

namespace tml {
namespace {

/// One of the files as a person reads it.
std::string ShownText(const TModuleFiles& files, const std::string& fileName) {
    if (files.Form && SameText(files.Form->FileName(), fileName)) return files.Form->ShownText();
    const bool isHeader = files.Header && SameText(files.Header->FileName(), fileName);
    return *(isHeader ? files.Header : files.Unit)->Text();
}

}  // namespace

TModules::TModules(IFileSystem& files, IMlRuntime& runtime)
    : files_(files),
      runtime_(runtime),
      journal_({[this](const std::string& fileName) { return ReadOnDisk(fileName); },
                [this](const std::vector<TStagedFile>& staged) { Write(staged); },
                [this](const std::string& title, const std::vector<std::string>& fileNames) {
                    if (OnWritten) OnWritten(title, fileNames);
                },
                [this](const std::vector<std::string>& fileNames) { TellRestored(fileNames); }}) {
    runtime.Files = this;
    runtime.BeginCommand = [this](const std::string& title) { return BeginCommand(title); };
}

TModules::~TModules() {
    runtime_.Files = nullptr;
    runtime_.BeginCommand = nullptr;
    for (const std::shared_ptr<TModule>& module : modules_)
        module->CloseDocuments();
}

const std::string& TModules::KeyOf(const std::string& fileName) {
    std::string& key = keys_[fileName];
    if (key.empty()) key = UpperCase(files_.Resolve(AbsolutePath(files_, fileName)));
    return key;
}

std::shared_ptr<TModule> TModules::Find(const std::string& fileName) {
    if (byFile_.empty()) return nullptr;  // the keys of a thousand closed files cost as much as their forms
    const auto found = byFile_.find(KeyOf(fileName));
    return found == byFile_.end() ? nullptr : found->second;
}

std::shared_ptr<IOTAModule> TModules::FindModule(const std::string& fileName) {
    return Find(fileName);
}

std::shared_ptr<IOTAModule> TModules::FindFormModule(const std::string& formName) {
    const auto [begin, end] = byForm_.equal_range(UpperCase(formName));
    const auto own = std::find_if(begin, end, [&](const auto& entry) { return IsOfActive(*entry.second); });
    if (own != end) return own->second;
    return begin == end ? nullptr : begin->second;
}

bool TModules::IsOfActive(TModule& module) const {
    const TProject* project = group_ ? group_->Active() : nullptr;
    return project != nullptr && project->FindUnit(module.GetFileName()) != nullptr;
}

std::shared_ptr<IOTAModule> TModules::OpenModule(const std::string& fileName, bool show) {
    std::shared_ptr<TModule> module;
    try {
        module = Find(fileName);
        if (module)
            for (const TDocument* document : module->Documents())
                ExpectNoNamesake(fileName, document->FileName());
        else
            module = OpenClosed(fileName);
    } catch (const EBadInput& error) {
        if (OnError) OnError(error);
        throw;
    }
    if (show) SetCurrent(module);
    return module;
}

std::shared_ptr<TModule> TModules::OpenClosed(const std::string& fileName) {
    const TFoundUnit found = FindUnit(AbsolutePath(files_, fileName));
    const std::string& unitFile = found.Unit.FileName;
    ExpectNoNamesake(fileName, unitFile);
    if (!Announce(TOTAFileNotification::ofnFileOpening, unitFile)) throw EmlLangSilent();
    auto module = std::make_shared<TModule>(*this, ReadFiles(found));
    if (!found.Unit.FormFile.empty()) CloseText(found.Unit.FormFile);
    AttachDesigner(module);
    Register(module);
    Announce(TOTAFileNotification::ofnFileOpened, unitFile);
    return module;
}

void TModules::CloseText(const std::string& formFile) {
    const std::shared_ptr<TModule> text = Find(formFile);
    if (!text) return;
    if (text->GetModified())
        throw EBadInput(formFile, 0, "the form is open as a text that is not saved", "Save it first");
    CloseModule(text);
}

std::shared_ptr<IOTAModule> TModules::OpenText(const std::string& fileName) {
    const std::string path = AbsolutePath(files_, fileName);
    if (const auto open = Find(path)) return open;
    if (TBinaryFormFile::IsBinaryForm(*ReadBytes(path).Now))
        throw EBadInput(path, 0, "a binary form is no text", "Take the file from a copy of the project");
    TModuleFiles read;
    read.Unit = ReadSource(path, FindUnit(path).CodePage);
    const auto module = std::make_shared<TModule>(*this, std::move(read));
    Register(module);
    return module;
}

/// To a project two files whose names differ in letter case only are one, on many a disk they are two.
void TModules::ExpectNoNamesake(const std::string& fileName, const std::string& found) {
    if (fileName == found || !SameText(fileName, found) || FolderOf(fileName) != FolderOf(found)) return;
    const std::vector<std::string> names = files_.List(FolderOf(found));
    const auto isThere = [&](const std::string& file) {
        return std::find(names.begin(), names.end(), FileNameOf(file)) != names.end();
    };
    if (isThere(fileName) && isThere(found))
        throw EBadInput(fileName, 0,
                        "its name differs from that of " + FileNameOf(found) + " in letter case only",
                        "Rename one of the two files");
}

/// A project's unit knows its form and header already; for any other file the folder is searched.
TModules::TFoundUnit TModules::FindUnit(const std::string& fileName) {
    for (std::size_t i = 0; group_ && i < group_->Projects().size(); ++i) {
        const TProject& project = *group_->Projects()[i];
        if (const TProjectUnit* unit = project.FindUnit(fileName)) return {*unit, project.Model().CodePage};
    }
    TFolderIndex index(files_);
    const auto found = index.Find(FolderOf(fileName), FileNameOf(fileName));
    TProjectUnit unit;
    unit.FileName = index.UnitFileOf(found ? *found : fileName);
    unit.FormFile = index.FormFileOf(unit.FileName);
    unit.HeaderFile = index.HeaderFileOf(unit.FileName);
    const TProject* active = group_ ? group_->Active() : nullptr;
    return {unit, active == nullptr ? std::string() : active->Model().CodePage};
}

std::vector<std::string> TModules::FilesOfUnit(const std::string& fileName) {
    const TProjectUnit unit = FindUnit(AbsolutePath(files_, fileName)).Unit;
    std::vector<std::string> files;
    for (const std::string& file : {unit.FileName, unit.HeaderFile, unit.FormFile})
        if (!file.empty()) files.push_back(file);
    return files;
}

TModuleFiles TModules::ReadFiles(const TFoundUnit& found) {
    const TProjectUnit& unit = found.Unit;
    TModuleFiles read;
    read.Unit = ReadSource(unit.FileName, found.CodePage);
    if (!unit.HeaderFile.empty()) read.Header = ReadSource(unit.HeaderFile, found.CodePage);
    if (!unit.FormFile.empty()) read.Form = ReadForm(unit.FormFile, found.CodePage);
    return read;
}

TModules::TBytesRead TModules::ReadBytes(const std::string& fileName) {
    const TJournal::TPending* pending = journal_.Pending(fileName);
    if (pending != nullptr && pending->Bytes)
        return {std::make_shared<const std::string>(pending->OnDisk.value_or("")),
                std::make_shared<const std::string>(*pending->Bytes)};
    const auto bytes = std::make_shared<const std::string>(files_.Read(fileName));
    return {bytes, bytes};
}

std::optional<std::string> TModules::ReadOnDisk(const std::string& fileName) {
    return files_.Stat(fileName) ? std::optional(files_.Read(fileName)) : std::nullopt;
}

std::optional<std::string> TModules::ReadFile(const std::string& fileName) {
    return journal_.Bytes(AbsolutePath(files_, fileName));
}

bool TModules::ReadParts(const std::string& fileName, const TPassPart& pass) {
    const std::string path = AbsolutePath(files_, fileName);
    if (journal_.Holds(path)) {
        const auto bytes = journal_.Bytes(path);
        if (bytes) pass(*bytes);
        return bytes.has_value();
    }
    const bool isThere = files_.Stat(path).has_value();
    if (isThere) files_.ReadParts(path, pass);
    return isThere;
}

void TModules::WriteFile(const std::string& fileName, std::string bytes) {
    journal_.Write(AbsolutePath(files_, fileName), std::move(bytes));
}

void TModules::RemoveFile(const std::string& fileName) {
    journal_.Write(AbsolutePath(files_, fileName), std::nullopt);
}

std::shared_ptr<TSourceBuffer> TModules::ReadSource(const std::string& fileName,
                                                    const std::string& codePage) {
    TBytesRead read = ReadBytes(fileName);
    return std::make_shared<TSourceBuffer>(journal_, fileName, *read.Now, std::move(read.OnDisk), codePage);
}

std::shared_ptr<TFormDocument> TModules::ReadForm(const std::string& fileName, const std::string& codePage) {
    TBytesRead read = ReadBytes(fileName);
    return std::make_shared<TFormDocument>(journal_, fileName, std::move(read.Now), std::move(read.OnDisk),
                                           codePage);
}

void TModules::AttachDesigner(const std::shared_ptr<TModule>& module) {
    const TModuleFiles& files = module->Files();
    if (!files.Form) return;
    TDesigner::TServices services;
    services.Journal = &journal_;
    services.Runtime = &runtime_;
    const std::weak_ptr<TModule> weak = module;
    services.FindForm = [this, weak](const std::string& formName) { return FindForm(formName, weak); };
    services.Show = [this, weak] {
        if (const auto self = weak.lock()) SetCurrent(self, kFormEditor);
    };
    services.FormRenamed = [this, weak] {
        if (const auto self = weak.lock()) NoteFormName(self);
    };
    module->SetDesigner(
        std::make_shared<TDesigner>(files.Form, TUnitSource(files.Unit, files.Header), std::move(services)));
}

void TModules::Register(const std::shared_ptr<TModule>& module) {
    modules_.push_back(module);
    for (TDocument* document : module->Documents()) {
        byFile_[KeyOf(document->FileName())] = module;
        journal_.Opened(*document);
    }
    NoteFormName(module);
}

void TModules::Unregister(const std::shared_ptr<TModule>& module) {
    std::erase(modules_, module);
    for (const TDocument* document : module->Documents()) {
        byFile_.erase(KeyOf(document->FileName()));
        journal_.Closed(*document);
    }
    ForgetFormName(*module);
}

void TModules::NoteFormName(const std::shared_ptr<TModule>& module) {
    if (!module->Files().Form) return;
    ForgetFormName(*module);
    module->IndexedFormName = UpperCase(module->GetFormName());
    byForm_.emplace(module->IndexedFormName, module);
}

void TModules::ForgetFormName(const TModule& module) {
    const auto [begin, end] = byForm_.equal_range(module.IndexedFormName);
    const auto found =
        std::find_if(begin, end, [&](const auto& entry) { return entry.second.get() == &module; });
    if (found != end) byForm_.erase(found);
}

std::shared_ptr<IOTAComponent> TModules::FindForm(const std::string& formName,
                                                  const std::weak_ptr<TModule>& user) {
    std::shared_ptr<IOTAModule> module = FindFormModule(formName);
    const TProject* project = group_ ? group_->Active() : nullptr;
    if (project != nullptr && (!module || !IsOfActive(*Find(module->GetFileName()))))
        if (const TProjectUnit* unit = project->FindForm(formName);
            unit != nullptr && !unit->Missing && !Find(unit->FileName)) {
            module = OpenModule(unit->FileName, false);
            Find(unit->FileName)->OpenedFor = user;
        }
    return module && module->GetFormEditor() ? module->GetFormEditor()->GetRootComponent() : nullptr;
}

void TModules::SetCurrent(const std::shared_ptr<TModule>& module, int editor) {
    if (module) module->OpenedFor.reset();
    current_ = module;
    currentEditor_ = editor;
}

std::shared_ptr<IOTASourceEditor> TModules::GetCurrentSourceEditor() {
    const auto module = current_.lock();
    return module ? module->GetSourceEditor(std::max(currentEditor_, 0)) : nullptr;
}

std::shared_ptr<IOTAEditor> TModules::CurrentEditor() const {
    const auto module = current_.lock();
    if (!module) return nullptr;
    if (currentEditor_ == kFormEditor) return module->GetFormEditor();
    return module->GetSourceEditor(currentEditor_);
}

std::string TModules::DiffToDisk(const std::string& fileName) {
    const std::shared_ptr<TModule> open = Find(fileName);
    if (!open) return {};
    TFoundUnit found = FindUnit(fileName);
    // A form may be open as a text, and no unit then.
    found.Unit.FileName = open->GetFileName();
    if (!open->Files().Form) found.Unit.FormFile.clear();
    const TModuleFiles onDisk = ReadFiles(found);
    return UnifiedDiff("on disk", "open", ShownText(onDisk, fileName), ShownText(open->Files(), fileName));
}

void TModules::AcceptDisk(const std::string& fileName) {
    const std::shared_ptr<TModule> open = Find(fileName);
    if (!open) return;
    for (TDocument* document : open->Documents())
        if (SameText(document->FileName(), fileName)) document->Written(files_.Read(fileName));
}

void TModules::CloseModule(const std::shared_ptr<TModule>& module) {
    if (std::find(modules_.begin(), modules_.end(), module) == modules_.end()) return;
    const std::string unitFile = module->GetFileName();
    // A project stays open when the text of its file is closed: nothing is announced of it.
    if (!IsProjectFile(unitFile) && !Announce(TOTAFileNotification::ofnFileClosing, unitFile)) return;
    if (module->Files().Form)
        Announce(TOTAFileNotification::ofnFileClosing, module->Files().Form->FileName());
    std::vector<std::string> unsaved;
    for (const TDocument* document : module->Documents())
        if (document->State().Changed) unsaved.push_back(document->FileName());
    Unregister(module);
    module->CloseDocuments();
    if (current_.lock() == module) current_.reset();
    if (!unsaved.empty()) TellRestored(unsaved);
    const std::vector<std::shared_ptr<TModule>> open = modules_;
    for (const std::shared_ptr<TModule>& other : open)
        if (other->OpenedFor.lock() == module && !other->GetModified()) CloseModule(other);
}

bool TModules::IsProjectFile(const std::string& fileName) const {
    if (!group_) return false;
    const auto& projects = group_->Projects();
    return std::any_of(projects.begin(), projects.end(),
                       [&](const auto& project) { return SameText(project->GetFileName(), fileName); });
}

void TModules::CloseAll() {
    const std::vector<std::shared_ptr<TModule>> open = modules_;
    for (const std::shared_ptr<TModule>& module : open)
        CloseModule(module);
}

std::shared_ptr<IOTAProject> TModules::GetActiveProject() {
    return group_ ? group_->GetActiveProject() : nullptr;
}

void TModules::SetProjects(std::shared_ptr<TProjectGroup> group) {
    group_ = std::move(group);
    journal_.SetPatchFolder(FolderOf(group_->MainFile()));
    const auto announce = [this](TProject& project) {
        Announce(TOTAFileNotification::ofnActiveProjectChanged, project.GetFileName());
    };
    group_->OnActiveChanged(announce);
    if (TProject* active = group_->Active()) announce(*active);
}

void TModules::ForgetProjects() {
    if (!group_) return;
    for (const std::shared_ptr<TProject>& project : group_->Projects())
        Announce(TOTAFileNotification::ofnFileClosing, project->GetFileName());
    if (!group_->GetFileName().empty()) Announce(TOTAFileNotification::ofnFileClosing, group_->GetFileName());
    group_.reset();
    journal_.Forget();
    keys_.clear();
}

std::unique_ptr<ICommandScope> TModules::BeginCommand(const std::string& title) {
    return journal_.Begin(title);
}

void TModules::ApplyChangeSet(const TChangeSet& changes) {
    tml::ApplyChangeSet(*this, changes);
}

int TModules::AddNotifier(std::shared_ptr<IOTAIDENotifier> notifier) {
    return notifiers_.Add(std::move(notifier));
}

bool TModules::Announce(TOTAFileNotification code, const std::string& fileName) {
    bool cancel = false;
    notifiers_.Tell([&](IOTAIDENotifier& notifier) { notifier.FileNotification(code, fileName, cancel); });
    return !cancel;
}

void TModules::TellRestored(const std::vector<std::string>& fileNames) {
    notifiers_.Tell([&](IOTAIDENotifier& notifier) { notifier.FilesRestored(fileNames); });
}

void TModules::Write(const std::vector<TStagedFile>& staged) {
    WriteTogether(files_, staged);
}

}  // namespace tml
