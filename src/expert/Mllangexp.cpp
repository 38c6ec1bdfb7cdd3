#include "expert/Mllangexp.h"

#include <algorithm>

#include "base/Errors.h"
#include "base/Utf8.h"
#include "core/Formrows.h"
#include "core/Modules.h"
#include "editors/Mldialogreg.h"
#include "editors/Mlreg.h"
#include "expert/Expopt.h"
#include "expert/Mlmainform.h"
#include "expert/Mlprojmngrmenu.h"
#include "ids/Stridrepl.h"
#include "ids/Transeditor.h"
#include "scan/Editorcommands.h"
#include "translations/Projectsettings.h"

namespace tml {
namespace {

constexpr std::size_t kMenuPosition = 2;
constexpr std::uint8_t kMostMenuRebuilds = 3;
/// Beside those that scan.
constexpr TEditorCommand kViewTranslation{"ViewTranslationByID", "View Translation by ID",
                                          ViewTranslationByIDMenuClick};

// The expert belongs to the IDE, the windows to the expert. Nothing outside this unit reads them.
TmlLangExpert* ExpertSingleton = nullptr;
std::unique_ptr<TForm> DockHost;
std::unique_ptr<TfrmmlLang> MainWindow;

/// What the about box shows.
constexpr const char* kAbout = "TmlLang Expert\r\nVersion " TML_VERSION;

}  // namespace

TmlLangExpert::TmlLangExpert(const THost& host)
    : host_(host),
      settings_(*host.Registry, host.Runtime->NamesArray()),
      context_(host_, settings_),
      services_(host.Services == nullptr ? nullptr : host.Services->GetServices()) {
    settings_.ReadSettings();
    Configure();
    context_.ShowExpert = [this] {
        if (!RunItemClick()) throw EmlLangSilent();
    };
    context_.RebuildMenuItem = [this] {
        RemoveSettings();
        Configure();
    };
    context_.OpenOptionsAt = [this](const std::string& control) { OpenOptionsAt(context_, control); };
    addInNotifier_ = std::make_shared<TmlAddInNotifier>(context_.Gate, *this);
    if (services_ != nullptr) notifierIndex_ = services_->AddNotifier(addInNotifier_);
    host_.Runtime->NavigateToSource = [this](const std::string& formName, const std::string& id) {
        ShowStringInSource(context_, formName, id);
    };
    host_.Runtime->ShowAboutBox = [this] {
        context_.Dialogs().MessageDlg(kAbout, TMsgDlgType::mtInformation, {mrOk});
    };
}

TmlLangExpert::~TmlLangExpert() {
    RemoveSettings();
    if (notifierIndex_ != -1) services_->RemoveNotifier(notifierIndex_);
    while (!moduleNotifiers_.empty()) {
        moduleNotifiers_.front()->Unregister();
        moduleNotifiers_.erase(moduleNotifiers_.begin());
    }
    addInNotifier_->Forget();
    addInNotifier_.reset();
    host_.Runtime->NavigateToSource = nullptr;
    host_.Runtime->ShowAboutBox = nullptr;
    try {
        DestroyProjectSettings();
    } catch (const EBadInput&) {
        // They cannot be saved, and a destructor has nobody to tell.
    }
    MainWindow.reset();
    if (ExpertSingleton == this) ExpertSingleton = nullptr;
    DockHost.reset();
}

std::string TmlLangExpert::GetIDString() {
    return "Delphi.mlLangAddInExpert";
}

std::string TmlLangExpert::GetName() {
    return "TmlLang Expert by " + GetAuthor();
}

std::string TmlLangExpert::GetAuthor() {
    return "Velmora";
}

// --- menus

void TmlLangExpert::Configure() {
    INTAServices* nta = host_.Services == nullptr ? nullptr : host_.Services->GetNTAServices();
    if (nta == nullptr) return;
    try {
        CreateMenuItem(nta->GetMainMenu());
    } catch (const std::exception&) {
        // The IDE's menu does not take the item: the expert runs without one.
        menuItem_.reset();
    }
}

void TmlLangExpert::CreateMenuItem(TMenuItem& mainMenu) {
    const auto& sections = mainMenu.Items;
    const auto section = std::find_if(sections.begin(), sections.end(), [this](const auto& item) {
        return item->Name == settings_.Get().MenuSection;
    });
    if (section == sections.end()) return;
    menuItem_ = std::make_shared<TMenuItem>();
    menuItem_->Caption = "Tml&Lang Expert";
    menuItem_->Name = "mlLangExpertMenuItem";
    menuItem_->ShortCut = settings_.Get().ShortCut;
    menuItem_->OnClick = [this] { RunItemClick(); };
    (*section)->Insert(kMenuPosition, menuItem_);
}

void TmlLangExpert::FreeMenuItem() {
    if (menuItem_ == nullptr) return;
    for (const auto& section : host_.Services->GetNTAServices()->GetMainMenu().Items)
        section->Remove(menuItem_.get());
    menuItem_.reset();
}

void TmlLangExpert::RebuildMenus() {
    RemoveEditorPopupMenu();
    InstallEditorPopupMenu();
    if (menuRebuildCount_ < kMostMenuRebuilds) ++menuRebuildCount_;
    // The count is never 0 here, so the item is rebuilt at every notification: on purpose, the IDE
    // rebuilds its menus at any time.
    if (menuRebuildCount_ == 0) return;
    FreeMenuItem();
    Configure();
}

void TmlLangExpert::InstallEditorPopupMenu() {
    INTAServices* nta = host_.Services == nullptr ? nullptr : host_.Services->GetNTAServices();
    if (nta == nullptr) return;
    const auto install = [&](const TEditorCommand& command) {
        auto item = std::make_shared<TMenuItem>();
        item->Name = command.Name;
        item->Caption = command.Caption;
        item->OnClick = [this, &command] {
            const TCommandGate::TCommand running(context_.Gate);
            RunCommand([&] { command.Handler(context_, subjects_.Scan); },
                       [this] {
                           if (MainWindow != nullptr) RowsChanged();
                       });
        };
        nta->GetEditorLocalMenu().Items.push_back(item);
        editorItems_.push_back(std::move(item));
    };
    for (const TEditorCommand& command : AllEditorCommands())
        install(command);
    install(kViewTranslation);
}

void TmlLangExpert::RemoveEditorPopupMenu() {
    for (const auto& item : editorItems_)
        host_.Services->GetNTAServices()->GetEditorLocalMenu().Remove(item.get());
    editorItems_.clear();
}

void TmlLangExpert::RemoveSettings() {
    RemoveEditorPopupMenu();
    FreeMenuItem();
}

// --- the main window

bool TmlLangExpert::FindDockHostClass() {
    const auto classes = host_.Services->GetNTAServices() == nullptr
                             ? std::vector<std::string>()
                             : host_.Services->GetNTAServices()->GetFormClasses("ProjectManagerForm");
    if (classes.size() > 2 && classes[2] == "TDockableForm") dockHostClass_ = classes[2];
    return !dockHostClass_.empty();
}

void TmlLangExpert::CreateMainWindow() {
    if (DockHost != nullptr) return;
    const bool docks = FindDockHostClass();
    if (docks) DockHost = host_.Services->GetNTAServices()->CreateDockHost(dockHostClass_);
    if (MainWindow != nullptr)
        context_.Dialogs().Show(*MainWindow);
    else
        MainWindow = std::make_unique<TfrmmlLang>(context_, subjects_, [this] { MainWindowClosed(); });
    if (docks) DockMainWindow();
}

void TmlLangExpert::DockMainWindow() {
    DockHost->Name = "TmlLangExpertIDEDockableForm";
    DockHost->Caption = MainWindow->Caption;
    DockHost->Menu = MainWindow->Menu;
    MainWindow->Menu = nullptr;
    // What changes in the window is shown by the view of its host.
    MainWindow->OnChange = [] { DockHost->Changed(); };
    DockHost->Centered = true;
    DockHost->ClientWidth = MainWindow->ClientWidth;
    DockHost->ClientHeight = MainWindow->ClientHeight;
    MainWindow->Parent = DockHost.get();
    MainWindow->Dockable = true;
    MainWindow->SetChecked("Dockable", true);
    MainWindow->Visible = true;
}

void TmlLangExpert::MainWindowClosed() {
    TAllSteps steps;
    steps.Try([this] { ProjectClosed(); });
    MainWindow.reset();
    DockHost.reset();
    steps.Finish();
}

TfrmmlLang* TmlLangExpert::Window() {
    return MainWindow.get();
}

bool TmlLangExpert::RunItemClick() {
    const auto project = GetActiveProject(context_);
    if (project == nullptr) {
        if (MainWindow != nullptr) MainWindow->UpdateStatusBar();
        return true;
    }
    const TCommandGate::TCommand running(context_.Gate);
    context_.Project = {};
    CreateMainWindow();
    // Settings of a project that cannot be read or stored must not keep it from being shown.
    TAllSteps steps;
    steps.Try([this] { ProjectClosed(); });
    const auto current = GetCurrentSourceEditor(context_);
    const bool complete = FillList(*project);
    if (complete) {
        steps.Try([&] { InitializeProjectSettings(project->GetFileName()); });
        ShowProject(current.get());
    }
    steps.Finish();
    return complete;
}

bool TmlLangExpert::Activate(IOTAProjectGroup& group, const std::shared_ptr<IOTAProject>& project) {
    TAllSteps steps;
    // What the IDE tells of it would have the project read twice.
    activates_ = true;
    steps.Try([&] {
        const TCommandGate::TOwnCall call(context_.Gate);
        group.SetActiveProject(project);
    });
    activates_ = false;
    steps.Finish();
    return RunItemClick();
}

void TmlLangExpert::ShowProject(IOTASourceEditor* current) {
    if (settings_.Get().OpenAllForms) OpenProjectForms();
    TForm& shown = DockHost != nullptr ? *DockHost : *MainWindow;
    if (DockHost != nullptr || !MainWindow->Visible) {
        context_.Dialogs().Show(shown);
        shown.Visible = true;
    }
    SortAgain();
    MainWindow->SetFilter({});
    if (current != nullptr) SelectRowOf(current->GetFileName());
    RowsChanged();
}

bool TmlLangExpert::FillList(IOTAProject& project) {
    bool complete = false;
    TAllSteps steps;
    steps.Try([&] { complete = ReadForms(project); });
    // A list of some of the forms would pass for the whole project's.
    if (!complete) ProjectClosed();
    steps.Finish();
    return complete;
}

bool TmlLangExpert::ReadForms(IOTAProject& project) {
    const TProgressEnd end(context_.Dialogs());
    TClosedForms closed(host_);
    const int count = project.GetModuleCount();
    for (int i = 0; i < count; ++i) {
        if (!context_.Dialogs().ShowProgress("Reading forms...", i, count)) return false;
        AddProjectModule(context_, closed, project.GetModule(i));
    }
    return true;
}

/// Forms that the person does not wait for stay closed; their rows are there already.
void TmlLangExpert::OpenProjectForms() {
    const TProgressEnd end(context_.Dialogs());
    const auto& rows = context_.Rows.FormNames.Items();
    int opened = 0;
    for (const auto& row : rows) {
        if (!context_.Dialogs().ShowProgress("Opening forms...", opened++, static_cast<int>(rows.size())))
            return;
        if (OpenFile(context_, row->FileName, false)) RefreshItem(context_, row.get());
    }
}

/// As a click on the sorted column, but for the direction, which stays.
void TmlLangExpert::SortAgain() {
    try {
        SortRows(context_, settings_.Get().SortedColumn, settings_.Get().SortOrder);
    } catch (const EBadInput&) {
        // The list is sorted; what could not be stored is what is stored already. Settings that cannot be
        // written must not keep a project from being shown.
    }
}

void TmlLangExpert::SelectRowOf(const std::string& sourceFile) {
    const auto& rows = context_.Rows.FormNames.Items();
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const auto& row) {
        const std::string& unit = row->FileName;
        return SameText(unit, sourceFile) || SameText(WithExtension(unit, ".dfm"), sourceFile) ||
               SameText(WithExtension(unit, ".xfm"), sourceFile);
    });
    if (found == rows.end()) return;
    (*found)->Selected = true;
    context_.Rows.ScrolledTo = (*found)->Id();
    context_.Rows.FormNames.Touch();
}

void TmlLangExpert::ProjectClosed() {
    context_.Project = {};
    TAllSteps steps;
    steps.Try([this] { DestroyProjectSettings(); });
    context_.ExternalFiles.Clear();
    for (TFormRows* list : context_.Rows.Both())
        ClearRows(*list);
    if (MainWindow != nullptr) RowsChanged();
    steps.Finish();
}

void TmlLangExpert::InitializeProjectSettings(const std::string& projectFileName) {
    DestroyProjectSettings();
    const auto settings = std::make_shared<TmlLangProjectSettings>(context_);
    host_.Runtime->mlLangProjectSettings = settings;
    settings->SetFileName(WithExtension(projectFileName, ".mlproj"));
    context_.ExternalFiles.OnChange = [this, settings] {
        settings->SetExternalFiles(context_.ExternalFiles.Files());
        settings->SaveFile();
    };
    context_.ExternalFiles.Open(projectFileName, settings->GetExternalFiles());
    ListExternalFiles(context_);
}

void TmlLangExpert::DestroyProjectSettings() {
    auto& settings = host_.Runtime->mlLangProjectSettings;
    if (settings == nullptr) return;
    const auto old = std::move(settings);
    settings = nullptr;
    context_.ExternalFiles.OnChange = nullptr;
    if (old->GetIsChanged()) old->SaveFile();
}

// --- notifications

void TmlLangExpert::FileNotified(TOTAFileNotification notifyCode, const std::string& fileName) {
    RebuildMenus();
    if (notifyCode == TOTAFileNotification::ofnFileOpened) FileOpened(fileName);
    if (MainWindow == nullptr) return;
    if (notifyCode == TOTAFileNotification::ofnFileClosing) FileClosing(fileName);
    if (notifyCode == TOTAFileNotification::ofnActiveProjectChanged && !activates_) RunItemClick();
}

void TmlLangExpert::FileOpened(const std::string& fileName) {
    const auto module = GetModuleFromFileName(context_, fileName);
    if (module == nullptr) return;
    moduleNotifiers_.push_back(TmlModuleNotifier::Create(context_, nullptr, nullptr, module));
    if (MainWindow == nullptr || !MainWindow->Visible) return;
    for (TFormRows* list : context_.Rows.Both())
        if (TFormRow* row = list->FindFile(fileName)) {
            RefreshItem(context_, row);
            list->Touch();
            MainWindow->UpdateStatusBar();
        }
}

void TmlLangExpert::FilesRestored(const std::vector<std::string>& fileNames) {
    if (MainWindow == nullptr) return;
    TAllSteps steps;
    steps.Try([&] { ReadRowsAgain(context_, fileNames); });
    RowsChanged();
    steps.Finish();
}

void TmlLangExpert::RowsChanged() {
    MainWindow->CheckEnableActions();
    MainWindow->UpdateStatusBar();
}

void TmlLangExpert::FileClosing(const std::string& fileName) {
    ForgetNotifierOf(fileName);
    const auto project = GetActiveProject(context_);
    if (project == nullptr) return;
    const auto group = GetActiveProjectGroup(context_);
    // The project's name is compared without regard to case, the group's with it: on purpose.
    if (SameText(fileName, project->GetFileName()) || (group != nullptr && group->GetFileName() == fileName))
        ProjectClosed();
}

void TmlLangExpert::ForgetNotifierOf(const std::string& formFile) {
    const auto found =
        std::find_if(moduleNotifiers_.begin(), moduleNotifiers_.end(), [&](const auto& notifier) {
            return notifier->IsRegistered() && notifier->FormFileName() == formFile;
        });
    if (found == moduleNotifiers_.end()) return;
    (*found)->Unregister();
    moduleNotifiers_.erase(found);
}

// --- the package

TmlLangExpert& ExpRegister(const THost& host, IRegistration& registration) {
    const auto expert = std::make_shared<TmlLangExpert>(host);
    ExpertSingleton = expert.get();
    registration.RegisterPackageWizard(expert);
    return *expert;
}

void Finalize(const THost& host) {
    UnregisterProjectMenu(host);
    if (host.CommonLibrary != nullptr) host.CommonLibrary->Unload();
}

namespace {

void LinkEditors(TEditorHost& editors, TmlLangExpert& expert) {
    editors.Expert = &expert.Context();
    editors.OnChangeStrID = ChangeStrIDOf(expert.Context());
    editors.RunCommand = [&expert](std::string_view command) { expert.Window()->Run(command); };
}

}  // namespace

TPackage MakePackage(const THost& host, std::function<void(TmlLangExpert&)> loaded) {
    const auto editors = std::make_shared<TEditorHost>(TEditorHost{host});
    return {.Name = "TmlLang",
            .Register =
                [host, editors, loaded = std::move(loaded)](IRegistration& registration) {
                    RegisterMlreg(registration, editors, [&] {
                        TmlLangExpert& expert = ExpRegister(host, registration);
                        LinkEditors(*editors, expert);
                        RegisterProjectMenu(host, expert);
                        if (loaded) loaded(expert);
                    });
                    RegisterMldialogs(registration, editors);
                },
            .Finalization =
                [host, editors] {
                    *editors = {host};
                    Finalize(host);
                }};
}

}  // namespace tml
