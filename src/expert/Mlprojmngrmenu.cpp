#include "expert/Mlprojmngrmenu.h"

#include <algorithm>
#include <array>

#include "base/Errors.h"
#include "base/Files.h"
#include "core/Modules.h"
#include "expert/Mllangexp.h"
#include "expert/Mlmainform.h"
#include "translations/Filedelimiter.h"
#include "translations/Formtrans.h"
#include "translations/Groupfiles.h"
#include "translations/Projmngsaskfilename.h"

namespace tml {
namespace {

enum class TProjectRange { All, FromHere, Selected };

/// An entry of the sub-menu; one without a confirmation is a separator.
struct TProjectEntry {
    const char* Caption = "-";
    const char* Confirmation = nullptr;  ///< "%s" is the name of the file
    bool Saving = false;
    TProjectRange Range = TProjectRange::All;
};

constexpr std::array kEntries{
    TProjectEntry{"Load all projects", "This will load all projects in project group from %s! Continue?",
                  false, TProjectRange::All},
    TProjectEntry{"Save all projects", "This will save all projects in project group to %s! Continue?", true,
                  TProjectRange::All},
    TProjectEntry{},
    TProjectEntry{"Load all from here",
                  "This will load the selected and next projects in project group from %s! Continue?", false,
                  TProjectRange::FromHere},
    TProjectEntry{"Save all from here",
                  "This will save the selected and next projects in project group to %s! Continue?", true,
                  TProjectRange::FromHere},
    TProjectEntry{},
    TProjectEntry{"Load selected project", "This will load selected project from %s! Continue?", false,
                  TProjectRange::Selected},
    TProjectEntry{"Save selected project", "This will save selected project to %s! Continue?", true,
                  TProjectRange::Selected},
};

/// By which the project manager knows the menu, -1 while it is not registered.
int MenuIndex = -1;

using TProjects = std::vector<std::shared_ptr<IOTAProject>>;

IOTAProjectManager* ManagerOf(const THost& host) {
    return host.Services == nullptr ? nullptr : host.Services->GetProjectManager();
}

/// In the order of the group.
TProjects ProjectsOf(IOTAProjectGroup& group, const std::shared_ptr<IOTAProject>& selected,
                     TProjectRange range) {
    TProjects projects;
    for (int i = 0; i < group.GetProjectCount(); ++i)
        projects.push_back(group.GetProject(i));
    if (range == TProjectRange::All) return projects;
    const auto from = std::find(projects.begin(), projects.end(), selected);
    if (from == projects.end()) return {};
    return range == TProjectRange::FromHere ? TProjects(from, projects.end()) : TProjects{selected};
}

/// An entry at work.
class TProjectRun {
  public:
    TProjectRun(TmlLangExpert& expert, const TProjectEntry& entry)
        : expert_(expert), context_(expert.Context()), entry_(entry) {}

    void Run(IOTAProjectGroup& group, const std::shared_ptr<IOTAProject>& selected) {
        const TProjects projects = ProjectsOf(group, selected, entry_.Range);
        if (projects.empty()) return;
        const std::string first = FileNameOf(projects.front()->GetFileName());
        if (!AskForFileName(context_, entry_.Saving, entry_.Confirmation, first, fileName_, delimiter_))
            return;
        asked_ = Parsed(first);
        // What was done is told, even where a project has ended the command.
        TAllSteps steps;
        steps.Try([&] {
            TStringList files;
            for (const auto& project : projects)
                files.Add(project->GetFileName());
            ExpectDistinctNames(files);
            for (const auto& project : projects) {
                // The person may stop the reading of its forms.
                if (!expert_.Activate(group, project)) throw EmlLangSilent();
                Transfer(*project);
            }
        });
        ShowReports(context_.Dialogs(), reports_, unsaved_);
        steps.Finish();
    }

  private:
    std::string Parsed(const std::string& projectName) {
        return GetParsedFileName(*context_.Host.Clock, fileName_, projectName);
    }

    void Transfer(IOTAProject& project) {
        const std::string projectFile = project.GetFileName();
        const std::string fileName = Parsed(FileNameOf(projectFile));
        TFormReports reports;
        TAllSteps steps;
        steps.Try([&] {
            if (entry_.Saving)
                SaveProjectToFile(context_, projectFile, fileName, DelimiterFor(fileName), reports);
            else
                LoadProjectFromFile(context_, projectFile, fileName, reports);
        });
        // Two projects may have forms of one name.
        const std::string prefix = ProjectNameOf(context_) + "/";
        if (!entry_.Saving)
            for (const std::string& form : UnsavedForms(context_, reports))
                unsaved_.Add(prefix + form);
        for (auto& [form, report] : reports)
            reports_.emplace_back(prefix + form, std::move(report));
        steps.Finish();
    }

    /// With a template each file that is there keeps its own.
    std::string DelimiterFor(const std::string& fileName) {
        const bool isAsked = fileName == asked_ || delimiter_.empty();
        return isAsked || !context_.Host.Files->Stat(fileName) ? delimiter_
                                                               : GetMLLFileDelimiter(context_, fileName);
    }

    TmlLangExpert& expert_;
    TContext& context_;
    const TProjectEntry& entry_;
    std::string fileName_;   ///< as the person has named it, with its tags
    std::string delimiter_;  ///< "" for the binary kind
    std::string asked_;      ///< the file that the delimiter was asked for
    TFormReports reports_;
    TStringList unsaved_;  ///< with their projects in front
};

void Click(TmlLangExpert& expert, IOTAProjectManager& manager, const TProjectEntry& entry) {
    TContext& context = expert.Context();
    const auto group = GetActiveProjectGroup(context);
    if (group == nullptr) return;
    const TCommandGate::TCommand running(context.Gate);
    RunCommand([&] { TProjectRun(expert, entry).Run(*group, manager.GetSelectedProject()); },
               [&] {
                   if (expert.Window() != nullptr) expert.Window()->CheckEnableActions();
                   UpdateStatusBar(context);
               });
}

std::shared_ptr<TMenuItem> NewItem(const char* caption, std::function<void()> click = {}) {
    auto item = std::make_shared<TMenuItem>();
    item->Caption = caption;
    item->OnClick = std::move(click);
    return item;
}

}  // namespace

bool TmlLangProjMngrContextMenu::CanHandle(const std::string& ident) {
    return ident == kProjectContainer;
}

std::shared_ptr<TMenuItem> TmlLangProjMngrContextMenu::AddMenu(const std::string& /*ident*/) {
    auto menu = NewItem("TmlLang translations");
    for (const TProjectEntry& entry : kEntries)
        menu->Items.push_back(entry.Confirmation == nullptr ? NewItem(entry.Caption)
                                                            : NewItem(entry.Caption, [this, &entry] {
                                                                  Click(expert_, manager_, entry);
                                                              }));
    return menu;
}

void RegisterProjectMenu(const THost& host, TmlLangExpert& expert) {
    if (IOTAProjectManager* manager = ManagerOf(host))
        MenuIndex = manager->AddMenuCreator(std::make_shared<TmlLangProjMngrContextMenu>(*manager, expert));
}

void UnregisterProjectMenu(const THost& host) {
    IOTAProjectManager* manager = ManagerOf(host);
    if (manager != nullptr && MenuIndex >= 0) manager->RemoveMenuCreator(MenuIndex);
    MenuIndex = -1;
}

}  // namespace tml
