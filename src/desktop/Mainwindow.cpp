#include "desktop/Mainwindow.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <Qsci/qsciscintilla.h>
#include <utility>

#include "base/Diskfiles.h"
#include "base/Errors.h"
#include "desktop/Changedfile.h"
#include "desktop/Codeeditor.h"
#include "desktop/Editortabs.h"
#include "desktop/Expertdock.h"
#include "desktop/Findbar.h"
#include "desktop/Formdialog.h"
#include "desktop/Help.h"
#include "desktop/Icons.h"
#include "desktop/Idecommands.h"
#include "desktop/Messagepane.h"
#include "desktop/Projecttree.h"
#include "desktop/Texts.h"
#include "desktop/Views.h"
#include "expert/Mllangexp.h"
#include "expert/Mlmainform.h"
#include "host/Commonlibrary.h"
#include "host/Registryfile.h"
#include "ide/Staging.h"
#include "projects/Projectfiles.h"
#include "ui_Mainwindow.h"

namespace tml {
namespace {

constexpr int kStatusTime = 5000;    ///< ms
constexpr qsizetype kNamesTold = 3;  ///< of files in the status bar

/// The tool bar, by the names of items in the menus.
constexpr std::array kToolBar{"Open1", "Save1", "SaveAll1", "Undo1", "Redo1",
                              "Cut1",  "Copy1", "Paste1",   "Find1", "mlLangExpertMenuItem"};

/// The filters of the dialog that chooses a project.
QString ProjectFilters() {
    QString patterns;
    for (const std::string& extension : ProjectExtensions())
        patterns += " *" + ToQt(extension);
    return "Projects (" + patterns.trimmed() + ");;All files (*)";
}

/// The windows that stand open beside the workbench.
std::vector<TFormDialog*> OpenWindows(const QWidget& workbench) {
    std::vector<TFormDialog*> windows;
    for (auto* dialog : workbench.findChildren<QDialog*>(Qt::FindDirectChildrenOnly))
        if (auto* window = dynamic_cast<TFormDialog*>(dialog)) windows.push_back(window);
    return windows;
}

}  // namespace

TMainWindow::TMainWindow(const TDeskFolders& folders)
    : files_(MakeDiskFileSystem()),
      registry_(std::make_unique<TRegistryFile>(*files_, JoinPath(folders.Settings, "settings"))),
      ui_(std::make_unique<Ui::Mainwindow>()) {
    host_ = std::make_unique<TExpertHost>(
        *files_, *registry_, dialogs_, MakeCommonLibraryLoader(CommonLibraryPath(*files_, folders.Program)));
    places_ = std::make_unique<TPlaces>(*host_->Host().Registry);
    services_.reset(new TViewServices{runner_, host_->Host(), *places_,
                                      [this](const std::string& topic) { ShowTopic(topic); }});
    ui_->setupUi(this);
    telling_.setSingleShot(true);
    setWindowIcon(ProgramIcon());
    BuildPanes();
    BindIde();
    SetUpIdeMenus(host_->Ide().GetNTAServices()->GetMainMenu(),
                  host_->Ide().GetNTAServices()->GetEditorLocalMenu(), *this);
    runner_.Run([this] { host_->LoadExpert(); });
    BindMenus();
    runner_.Run([this] {
        FillRecentProjects();
        places_->Restore(*this, "Window");
        resize(size().boundedTo(RoomFor(*this)));
        places_->RestoreState(*this);
        wantsExpert_ = places_->WantsExpert();
    });
}

TMainWindow::~TMainWindow() {
    runner_.Before = nullptr;
    runner_.After = nullptr;
    if (dock_ != nullptr) dock_->Forget();
    for (TFormDialog* dialog : OpenWindows(*this))
        delete dialog;
    delete tabs_;
    menus_.clear();
}

void TMainWindow::BuildPanes() {
    tabs_ = new TEditorTabs(host_->Ide(), *host_->Host().Runtime, runner_);
    findBar_ = new TFindBar([this] { return tabs_->ShowText(); });
    ui_->centreLayout->addWidget(tabs_);
    ui_->centreLayout->addWidget(findBar_);
    tree_ = new TProjectTree(host_->Ide());
    ui_->projectDock->setWidget(tree_);
    messages_ = new TMessagePane;
    ui_->messageDock->setWidget(messages_);
    ui_->messageDock->hide();
    resizeDocks({ui_->projectDock, ui_->messageDock}, {260, 260}, Qt::Horizontal);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);

    messages_->OnGoTo = [this](const std::string& file, int line) { runner_.Run([&] { GoTo(file, line); }); };
    tree_->OnOpen = [this](const std::string& file) { runner_.Run([&] { GoTo(file, 0); }); };
    tree_->OnViewForm = [this](const std::string& file) { runner_.Run([&] { tabs_->ShowForm(file); }); };
    tree_->SettingsCommand = [this]() -> std::shared_ptr<TMenuItem> {
        const TfrmmlLang* window = host_->ExpertWindow();
        return window == nullptr ? nullptr : FindItem(*window->MainMenu, "ProjectSettings1");
    };
    tree_->OnCommand = [this](TMenuItem& command) { runner_.Run([&] { command.Click(); }); };
    tree_->OnMakeActive = [this](const std::shared_ptr<IOTAProject>& project) {
        runner_.Run([&] { host_->Modules().GetMainProjectGroup()->SetActiveProject(project); });
    };
    tabs_->OnCloseModule = [this](const std::shared_ptr<IOTAModule>& module) { CloseModule(module); };
    tabs_->OnLocalMenu = [this](const QPoint& at) { ShowLocalMenu(at); };
}

void TMainWindow::BindIde() {
    dialogs_.Parent = this;
    dialogs_.Services = [this]() -> const TViewServices& { return *services_; };
    dialogs_.ShowWindow = [this](TForm& form) { ShowWindow(form); };
    dialogs_.ShowTopic = services_->ShowHelp;
    runner_.Before = [this] { tabs_->Commit(); };
    runner_.After = [this] { Follow(); };
    runner_.OnError = [this](const std::exception& error) { ReportError(error); };
    // A command ends without a word where a unit cannot be opened: the pane says why.
    dialogs_.OnError = [this](const std::exception& error) {
        messages_->AddError(error);
        ShowMessages();
    };
    host_->Ide().ShowErrors(dialogs_.OnError);
    host_->Ide().TellWritten([this](const std::string& title, const std::vector<std::string>& files) {
        for (const std::string& file : files)
            written_.emplace_back(file, title);
    });
}

void TMainWindow::BindMenus() {
    TMenuItem& menu = host_->Ide().GetNTAServices()->GetMainMenu();
    menus_.push_back(std::make_unique<TMenuBinding>(
        ui_->menuBar, [&menu] { return menu.Items; }, runner_));
    menus_.push_back(std::make_unique<TMenuBinding>(
        ui_->toolBar,
        [&menu] {
            std::vector<std::shared_ptr<TMenuItem>> items;
            for (const char* name : kToolBar)
                if (auto item = FindItem(menu, name)) items.push_back(std::move(item));
            return items;
        },
        runner_));
}

// --- following the IDE

void TMainWindow::Follow() {
    if (following_) return;
    following_ = true;
    try {
        if (dock_ != nullptr && host_->ExpertWindow() != &dock_->Form()) {
            dock_->Forget();
            dock_->hide();
            dock_->deleteLater();
            dock_ = nullptr;
            wantsExpert_ = false;
        }
        tabs_->Follow();
        tree_->Refresh();
        for (const auto& menu : menus_)
            menu->Refresh();
        FollowTitle();
        TellWritten();
    } catch (const std::exception& error) {
        messages_->AddError(error);
    }
    following_ = false;
}

void TMainWindow::FollowTitle() {
    const auto project = host_->Modules().GetActiveProject();
    const QString name = project == nullptr ? QString() : ToQt(FileNameOf(project->GetFileName())) + " - ";
    setWindowTitle(name + "TmlLang Workbench");
}

void TMainWindow::Tell(const QString& outcome) {
    statusBar()->showMessage(outcome, kStatusTime);
    telling_.start(kStatusTime);
}

void TMainWindow::ForgetOutcome() {
    statusBar()->clearMessage();
    telling_.stop();
}

bool TMainWindow::event(QEvent* event) {
    // The hint of the button that was clicked would hide at once what that has done.
    if (event->type() == QEvent::StatusTip && telling_.isActive()) return true;
    return QMainWindow::event(event);
}

/// What is open tells by its tab that it is saved; of a closed file nobody would learn.
void TMainWindow::TellWritten() {
    QStringList names;
    QString command;
    for (const auto& [file, title] : std::exchange(written_, {})) {
        names += ToQt(FileNameOf(file));
        messages_->Forget(file);
        if (host_->Modules().FindModule(file) != nullptr) continue;
        command = " (" + ToQt(title) + ")";
        messages_->AddNote(file, "Written to the disk (" + title +
                                     "); Undo takes it back while this file or none is in front");
    }
    if (names.empty()) return;
    const auto more = names.size() - kNamesTold;
    const QString rest = more > 0 ? " and " + QString::number(more) + " more" : QString();
    Tell("Written: " + names.mid(0, kNamesTold).join(", ") + rest + command);
}

void TMainWindow::FillRecentProjects() {
    TMenuItem& menu = *FindItem(host_->Ide().GetNTAServices()->GetMainMenu(), "RecentProjects1");
    const QStringList paths = places_->RecentProjects();
    menu.Items.clear();
    for (const QString& path : paths) {
        auto item = std::make_shared<TMenuItem>();
        item->Caption =
            "&" + std::to_string(menu.Items.size() + 1) + "  " + FromQt(QString(path).replace('&', "&&"));
        item->Hint = FromQt(path);
        item->OnClick = [this, path] { OpenProject(path); };
        menu.Items.push_back(std::move(item));
    }
}

void TMainWindow::ReportError(const std::exception& error) {
    messages_->AddError(error);
    const auto* changed = dynamic_cast<const EChangedOnDisk*>(&error);
    if (changed != nullptr && host_->Modules().FindModule(changed->File()) != nullptr)
        runner_.Run([this, file = changed->File()] {
            if (!AskAboutChanged(file)) return;
            if (const auto module = host_->Modules().FindModule(file)) module->Save();
        });
    else
        dialogs_.MessageDlg(error.what(), TMsgDlgType::mtError, {mrOk});
}

bool TMainWindow::AskAboutChanged(const std::string& file) {
    const TChangedFileWay way = AskAboutChangedFile(this, file, host_->Ide().DiffToDisk(file));
    const auto module = host_->Modules().FindModule(file);
    if (module == nullptr || way == TChangedFileWay::Leave) return false;
    if (way == TChangedFileWay::Overwrite) {
        host_->Ide().AcceptDisk(file);
    } else {
        const std::string unit = module->GetFileName();
        module->Close();
        GoTo(unit, 0);
    }
    return true;
}

bool TMainWindow::SaveAsking(const std::function<void()>& save) {
    for (;;) {
        try {
            save();
            TellWritten();  // before what is saved may be closed
            return true;
        } catch (const EChangedOnDisk& changed) {
            if (host_->Modules().FindModule(changed.File()) == nullptr) throw;
            messages_->AddError(changed);
            if (!AskAboutChanged(changed.File())) return false;
        }
    }
}

void TMainWindow::ShowWindow(TForm& form) {
    TfrmmlLang* window = host_->ExpertWindow();
    if (window == nullptr || (&form != window && &form != window->Parent)) return ShowOpenWindow(form);
    if (dock_ != nullptr && &dock_->Form() != window) {
        dock_->Forget();
        delete std::exchange(dock_, nullptr).data();
    }
    if (dock_ == nullptr) {
        dock_ = new TExpertDock(*window, MakeView(*window, *services_), runner_, this);
        if (!restoreDockWidget(dock_)) {
            addDockWidget(Qt::BottomDockWidgetArea, dock_);
            tabifyDockWidget(ui_->messageDock, dock_);
            resizeDocks({dock_}, {form.ClientHeight * 3 / 4}, Qt::Vertical);
        }
    }
    dock_->ComeForward();
    wantsExpert_ = true;
}

void TMainWindow::ShowOpenWindow(TForm& form) {
    for (TFormDialog* dialog : OpenWindows(*this))
        if (dialog->Form() == &form) {
            dialog->raise();
            return dialog->activateWindow();
        }
    (new TFormDialog(form, MakeView(form, *services_), *services_, this))->ShowOpen();
}

void TMainWindow::ShowTopic(const std::string& topic) {
    // A modal window lets only its own windows be used: it gets a help of its own.
    QWidget* modal = QApplication::activeModalWidget();
    QWidget* owner = modal == nullptr ? this : modal;
    auto* help = owner->findChild<THelp*>("help", Qt::FindDirectChildrenOnly);
    if (help == nullptr) help = new THelp(owner);
    help->ShowTopic(topic);
}

void TMainWindow::ShowLocalMenu(const QPoint& at) {
    TMenuItem& menu = host_->Ide().GetNTAServices()->GetEditorLocalMenu();
    const TTextPage& page = *tabs_->CurrentText();
    FindItem(menu, "Cut1")->Enabled = page.hasSelectedText();
    FindItem(menu, "Copy1")->Enabled = page.hasSelectedText();
    FindItem(menu, "Paste1")->Enabled = page.SendScintilla(QsciScintilla::SCI_CANPASTE) != 0;
    auto* popup = new QMenu(this);
    popup->setObjectName("editorLocalMenu");
    popup->setAttribute(Qt::WA_DeleteOnClose);
    runner_.Before();
    const auto binding = std::make_shared<TMenuBinding>(
        popup, [&menu] { return menu.Items; }, runner_);
    connect(popup, &QMenu::aboutToHide, popup, [popup, binding] { popup->deleteLater(); });
    popup->popup(at);
}

// --- projects and files

void TMainWindow::OpenProject(const QString& path) {
    const QString file = QFileInfo(path).absoluteFilePath();
    bool opened = false;
    runner_.Run([&] {
        if (!AskToSaveAll()) return;
        messages_->ClearMessages();
        // An expert whose window is open hears of the new project and lists it by itself; one that the
        // person has closed stays closed.
        const bool listens = host_->ExpertWindow() != nullptr;
        host_->Ide().OpenProject(FromQt(file));
        opened = true;
        ForgetOutcome();
        if (!listens && wantsExpert_ && host_->Expert() != nullptr) host_->Expert()->RunItemClick();
    });
    for (const TProjectProblem& problem : host_->Ide().Problems())
        messages_->AddMessage(problem.FileName, problem.Line, problem.Problem + ". " + problem.Remedy);
    if (!opened) return;
    // Names of files that the person types mean the project's folder, wherever the program was started.
    QDir::setCurrent(QFileInfo(file).absolutePath());
    ui_->messageDock->setVisible(messages_->topLevelItemCount() > 0);
    ui_->messageDock->raise();
    // Last, and apart: where it cannot be stored the project is open all the same.
    runner_.Run([&] {
        places_->AddRecentProject(file);
        FillRecentProjects();
    });
}

void TMainWindow::AskProject() {
    const QString path = QFileDialog::getOpenFileName(this, "Open Project", {}, ProjectFilters());
    if (!path.isEmpty()) OpenProject(path);
}

void TMainWindow::ReloadProject() {
    const auto group = host_->Modules().GetMainProjectGroup();
    if (group == nullptr) return;
    const std::string file =
        group->GetFileName().empty() ? group->GetProject(0)->GetFileName() : group->GetFileName();
    OpenProject(ToQt(file));
}

void TMainWindow::CloseProject() {
    if (!AskToSaveAll()) return;
    host_->Ide().CloseProject();
    ForgetOutcome();
}

bool TMainWindow::AskToSave(const std::vector<std::shared_ptr<IOTAModule>>& modules) {
    std::string names;
    std::vector<std::shared_ptr<IOTAModule>> modified;
    for (const auto& module : modules) {
        if (!module->GetModified()) continue;
        modified.push_back(module);
        names += "\n" + FileNameOf(module->GetFileName());
    }
    if (modified.empty()) return true;
    const TModalResult answer = dialogs_.MessageDlg("Save the changes of these units?\n" + names,
                                                    TMsgDlgType::mtConfirmation, {mrYes, mrNo, mrCancel});
    bool goesOn = answer != mrCancel;
    for (std::size_t i = 0; answer == mrYes && goesOn && i < modified.size(); ++i)
        goesOn = SaveAsking([this, file = modified[i]->GetFileName()] {
            if (const auto module = host_->Modules().FindModule(file)) module->Save();
        });
    return goesOn;
}

bool TMainWindow::AskToSaveAll() {
    return AskToSave(host_->Ide().Modules());
}

void TMainWindow::CloseModule(const std::shared_ptr<IOTAModule>& module) {
    if (AskToSave({module})) module->Close();
}

void TMainWindow::CloseFile() {
    if (tabs_->currentIndex() >= 0) tabs_->CloseTab(tabs_->currentIndex());
}

void TMainWindow::Save() {
    const std::string file = tabs_->CurrentFile();
    SaveAsking([&] {
        if (const auto module = host_->Modules().FindModule(file)) module->Save();
    });
}

void TMainWindow::SaveAll() {
    SaveAsking([this] { host_->Ide().SaveAll(); });
}

void TMainWindow::GoTo(const std::string& file, int line) {
    tabs_->ShowFile(file);
    if (line <= 0) return;
    if (TTextPage* text = tabs_->ShowText()) text->GoToLine(line);
}

// --- editing

void TMainWindow::Undo() {
    const std::string step = host_->Ide().Undo(tabs_->CurrentFile());
    Tell(step.empty() ? "Nothing to undo" : "Undone: " + ToQt(step));
}

void TMainWindow::Redo() {
    const std::string step = host_->Ide().Redo(tabs_->CurrentFile());
    Tell(step.empty() ? "Nothing to redo" : "Redone: " + ToQt(step));
}

void TMainWindow::Cut() {
    if (TTextPage* text = tabs_->CurrentText()) text->cut();
}

void TMainWindow::Copy() {
    if (TTextPage* text = tabs_->CurrentText()) text->copy();
}

void TMainWindow::Paste() {
    if (TTextPage* text = tabs_->CurrentText()) text->paste();
}

void TMainWindow::SelectAll() {
    if (TTextPage* text = tabs_->CurrentText()) text->selectAll();
}

void TMainWindow::Find() {
    findBar_->Open();
}

void TMainWindow::FindNext() {
    findBar_->FindNext(true);
}

void TMainWindow::FindPrevious() {
    findBar_->FindNext(false);
}

void TMainWindow::GoToLine() {
    TCodeEditor* editor = tabs_->Current();
    if (editor == nullptr) return;
    bool agreed = false;
    const int line =
        QInputDialog::getInt(this, "Go to Line", "Line:", 1, 1, std::max(editor->lines(), 1), 1, &agreed);
    if (agreed) editor->GoToLine(line);
}

// --- windows

void TMainWindow::ShowProjectManager() {
    ui_->projectDock->show();
    ui_->projectDock->raise();
    tree_->setFocus();
}

void TMainWindow::ShowMessages() {
    ui_->messageDock->show();
    ui_->messageDock->raise();
    messages_->setFocus();
}

void TMainWindow::HelpContents() {
    ShowTopic({});
}

void TMainWindow::About() {
    QMessageBox::about(this, "TmlLang Workbench",
                       "<h3>TmlLang Workbench " TML_VERSION
                       "</h3><p>The TmlLang Expert in windows: moves the hard-coded strings of form "
                       "projects into localization components.</p><p>This program is distributed under the "
                       "GNU General Public License, version 3.</p>");
}

void TMainWindow::Quit() {
    close();
}

void TMainWindow::closeEvent(QCloseEvent* event) {
    bool agreed = false;
    runner_.Run([&] { agreed = AskToSaveAll(); });
    event->setAccepted(agreed);
    if (!agreed) return;
    for (TFormDialog* dialog : OpenWindows(*this))
        dialog->close();
    // What cannot be stored is told, but keeps nobody in.
    runner_.Run([&, wantsExpert = wantsExpert_] {
        if (host_->ExpertWindow() != nullptr) host_->ExpertWindow()->FormClose();
        places_->SetWantsExpert(wantsExpert);
        places_->Save(*this, "Window");
        places_->SaveState(*this);
    });
}

}  // namespace tml
