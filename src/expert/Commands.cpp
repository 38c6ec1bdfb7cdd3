#include "expert/Commands.h"

#include <array>

#include "expert/Expopt.h"
#include "expert/Insertion.h"
#include "expert/Mlmainform.h"
#include "expert/Modules.h"
#include "platform/Projectsettings.h"
#include "scan/Scanreplace.h"

namespace tml {
namespace {

using enum TSubMenu;

/// Lets a command over the context stand in the table.
template <void (*Command)(TContext&)>
void On(TfrmmlLang& window) {
    Command(window.Context);
}

void ViewForm(TContext& context) {
    if (const TListItem* item = context.Rows.Active().FirstSelected())
        OpenFile(context, item->SubItems[fcFileName], true);
}

/// Only while a project with entries is open.
bool HasProjectSettings(TContext& context) {
    return context.Host.Runtime->mlLangProjectSettings != nullptr && !context.Project.ProjectFiles.Empty();
}

void ProjectSettings(TContext& context) {
    const auto settings = context.Host.Runtime->mlLangProjectSettings;
    settings->DisplayEditDialog();
}

void Exit(TfrmmlLang& window) {
    window.FormClose();
}

void SelectAll(TfrmmlLang& window) {
    window.SelectAll1Click();
}

void StayOnTop(TfrmmlLang& window) {
    window.StayOnTop = !window.StayOnTop;
    window.SetChecked("StayOnTop", window.StayOnTop);
}

void Dockable(TfrmmlLang& window) {
    window.Dockable = !window.Dockable;
    window.SetChecked("Dockable", window.Dockable);
}

void HelpTopics(TfrmmlLang& window) {
    window.Context.Dialogs().ShowHelp(window.Name);
}

constexpr unsigned kFilePopupBar = plFile | plPopup | plToolBar;

// A command without a handler is not there yet: it is shown, never enabled, and gets its handler here.
constexpr std::array kCommands{
    TCommand{"Translate", "&Translate", "Ctrl+T", 1, kFilePopupBar, None, nullptr, "Translate"},
    TCommand{"Wizard", "&Wizard", "Ctrl+W", 1, plFile | plToolBar, None, nullptr, "Translation Wizard"},
    TCommand{"Languages", "&Languages...", "", 11, kFilePopupBar, None, On<sbLanguagesClick>, "Languages",
             false, nullptr, "Set up number of languages in selected form",
             "Languages|Set up value of NumOfLanguages property for selected form(s)"},
    TCommand{"SaveForms", "&Save Selected Form(s)...", "", 111, plFile, SaveLoad, nullptr},
    TCommand{"LoadForms", "&Load Selected Form(s)...", "", 111, plFile, SaveLoad, nullptr},
    TCommand{"SaveFormsProperties", "Save Selected Form(s) &Properties...", "", 111, plFile, SaveLoad,
             nullptr},
    TCommand{"LoadFormsLanguage", "Load L&anguage for Form(s)...", "", 111, plFile, SaveLoad, nullptr},
    TCommand{"SaveProject", "Sa&ve Project...", "", -1, plFile, SaveLoad, nullptr},
    TCommand{"LoadProject", "Loa&d Project...", "", -1, plFile, SaveLoad, nullptr},
    TCommand{"LoadProjectLanguage", "Load Language for Pro&ject...", "", -1, plFile, SaveLoad, nullptr},
    TCommand{"SaveProjectProperties", "Save Project Properties...", "", 0, plFile, SaveLoad, nullptr},
    TCommand{"MergeForms", "&Merge Form(s)...", "", 112, plFile, SaveLoad, nullptr},
    TCommand{"MergeProject", "Mer&ge Project...", "", 113, plFile, SaveLoad, nullptr},
    TCommand{"SourceWithForm", "&With form...", "", 111, plFile, Source, On<SourceWithForm>},
    TCommand{"SourceWithoutForm", "W&ithout form...", "", 0, plFile, Source, On<SourceWithoutForm>},
    TCommand{"ConstWithForm", "With &Form...", "", 111, plFile, ConstSection, On<ConstWithForm>},
    TCommand{"ConstWithoutForm", "With&out Form...", "", 0, plFile, ConstSection, On<ConstWithoutForm>},
    TCommand{"Exclude", "E&xclude from Translation...", "", 111, plFile | plToolBar, None, nullptr,
             "Exclude"},
    TCommand{"Update", "&Update Translations", "Ctrl+U", 111, plFile | plPopup, None, nullptr},
    TCommand{"Clear", "Cl&ear Translations", "", 111, plFile, None, nullptr},
    TCommand{"ProjectSettings", "Project Settings...", "", 0, plFile, None, On<ProjectSettings>, "", false,
             HasProjectSettings},
    TCommand{"Exit", "E&xit", "", 0, plFile, None, Exit},
    TCommand{"CheckBadIDs", "&Check Bad String IDs", "", 112, plTools | plToolBar, None, nullptr,
             "Check IDs"},
    TCommand{"CheckBadIDsInUnits", "Check Bad String IDs in Unit(s)", "", 0, plTools, None, nullptr},
    TCommand{"ChangeType", "Change &TmlLang Type to", "", 112, plTools, None, nullptr},
    TCommand{"Dictionary", "&Dictionary", "Ctrl+M", 0, plTools, None, nullptr},
    TCommand{"Wizards", "&Wizards", "", 0, plTools, None, nullptr},
    TCommand{"FindPhrase", "&Find Phrase...", "", 111, plTools | plToolBar, None, nullptr, "Find"},
    TCommand{"ReplacePhrase", "&Replace Phrase...", "", 111, plTools | plToolBar, None, nullptr, "Replace"},
    TCommand{"Options", "&Options...", "", 0, plTools | plPopup, None, On<sbOptionsClick>},
    TCommand{"ViewForm", "&View Form", "", 111, plPopup, None, On<ViewForm>},
    TCommand{"Translatesource", "Source", "", 111, plPopup, HardCoded, On<SourceWithForm>},
    TCommand{"TranslateConst", "Const Section", "", 111, plPopup, HardCoded, On<ConstWithForm>, "", true},
    TCommand{"SelectAll", "Select &All", "Ctrl+A", 0, plPopup, None, SelectAll},
    TCommand{"StayOnTop", "&Stay on Top", "", 0, plPopup, None, StayOnTop},
    TCommand{"Dockable", "&Dockable", "", 0, plPopup, None, Dockable},
    TCommand{"HelpTopics", "&Help Topics", "", 0, plHelp, None, HelpTopics},
};

constexpr std::array kSubMenus{
    TSubMenuRow{SaveLoad, "SaveLoad", "Save/&Load Translation"},
    TSubMenuRow{Source, "Source", "&Source"},
    TSubMenuRow{ConstSection, "ConstSection", "&Const Section", true},
    TSubMenuRow{HardCoded, "HardCoded", "Hard-coded strings"},
};

}  // namespace

std::span<const TCommand> AllCommands() {
    return kCommands;
}

std::span<const TSubMenuRow> AllSubMenus() {
    return kSubMenus;
}

}  // namespace tml
