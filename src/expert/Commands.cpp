#include "expert/Commands.h"

#include <array>

#include "core/Modules.h"
#include "expert/Expopt.h"
#include "expert/Mlmainform.h"
#include "expert/Subjects.h"
#include "ids/Stridrepl.h"
#include "ids/Typechange.h"
#include "platform/Projectoptions.h"
#include "scan/Scanreplace.h"
#include "scan/Skippedstrings.h"
#include "setup/Dictionaryform.h"
#include "setup/Excludeforms.h"
#include "setup/Wizard.h"
#include "translations/Formlanguages.h"
#include "translations/Formtranslate.h"
#include "translations/Formupdate.h"

namespace tml {
namespace {

using enum TSubMenu;

// Each lets a subject's command stand in the table.

template <void (*Command)(TContext&)>
void On(TContext& context, TSubjects& /*subjects*/) {
    Command(context);
}

template <void (*Command)(TContext&, TScanMemory&)>
void OnScan(TContext& context, TSubjects& subjects) {
    Command(context, subjects.Scan);
}

template <void (*Command)(TContext&, TFilesMemory&)>
void OnFiles(TContext& context, TSubjects& subjects) {
    Command(context, subjects.Files);
}

template <void (*Command)(TContext&, TFilesMemory&, int), int Tag>
void OnFiles(TContext& context, TSubjects& subjects) {
    Command(context, subjects.Files, Tag);
}

template <void (*Command)(TContext&, TIDsMemory&)>
void OnIDs(TContext& context, TSubjects& subjects) {
    Command(context, subjects.IDs);
}

template <void (*Command)(TContext&, TPhrasesMemory&)>
void OnPhrases(TContext& context, TSubjects& subjects) {
    Command(context, subjects.Phrases);
}

template <void (*Command)(TContext&, TDictionaryMemory&)>
void OnDictionary(TContext& context, TSubjects& subjects) {
    Command(context, subjects.Dictionary);
}

/// A command of the window itself.
constexpr TCommand OfWindow(std::string_view name, std::string_view caption, std::string_view shortCut,
                            unsigned places, void (TfrmmlLang::*method)()) {
    return {name, caption, shortCut, 0, places, None, nullptr, {}, false, nullptr, {}, {}, method};
}

/// A button on the page of external files.
constexpr TCommand OfExternalFiles(std::string_view name, std::string_view caption, int tag,
                                   bool (*isAvailable)(TContext&), std::string_view hint,
                                   void (TfrmmlLang::*method)()) {
    return {name, {}, {}, tag, plToolBar, None, nullptr, caption, false, isAvailable, {}, hint, method, true};
}

void ViewForm(TContext& context) {
    const TFormRow* row = context.Rows.Active().FirstSelected();
    if (row == nullptr) return;
    const std::string file = row->FileName;
    if (!OpenFile(context, file, true)) return;
    if (const auto form = GetFormEditorFromModule(GetModuleFromFileName(context, file))) form->Show();
}

void Translate(TContext& context, TSubjects& /*subjects*/) {
    Translate1Click(context, ChangeStrIDOf(context));
}

/// Only while a project with entries is open.
bool HasProjectSettings(TContext& context) {
    return context.Host.Runtime->mlLangProjectSettings != nullptr && !context.Project.ProjectFiles.Empty();
}

void ProjectSettings(TContext& context) {
    const auto settings = context.Host.Runtime->mlLangProjectSettings;
    settings->DisplayEditDialog();
}

constexpr unsigned kFilePopupBar = plFile | plPopup | plToolBar;

// A command without a handler is not there yet: it is shown, never enabled, and gets its handler here.
constexpr std::array kCommands{
    TCommand{"Translate", "&Translate", "Ctrl+T", 1, kFilePopupBar, None, Translate, "Translate"},
    TCommand{"Wizard", "&Wizard", "Ctrl+W", 1, plFile | plToolBar, None, OnScan<Wizard1Click>,
             "Translation Wizard", false, nullptr, "Set up the selected forms for translation in one pass",
             "Translation Wizard|Sets up the selected forms for translation in one pass"},
    TCommand{"Languages", "&Languages...", "", 11, kFilePopupBar, None, On<sbLanguagesClick>, "Languages",
             false, nullptr, "Set up number of languages in selected form",
             "Languages|Set up value of NumOfLanguages property for selected form(s)"},
    TCommand{"SaveForms", "&Save Selected Form(s)...", "", kSelectedForms, plFile | plToolBar, SaveLoad,
             OnFiles<sbSaveAllClick, kSelectedForms>, "Save form(s)", false, nullptr, "",
             "Save form(s)|Save selected forms to file"},
    TCommand{"LoadForms", "&Load Selected Form(s)...", "", kSelectedForms, plFile | plToolBar, SaveLoad,
             OnFiles<sbLoadAllClick, kSelectedForms>, "Load form(s)", false, nullptr, "",
             "Load form(s)|Load translation for selected forms from file"},
    TCommand{"SaveFormsProperties", "Save Selected Form(s) &Properties...", "", 111, plFile, SaveLoad,
             OnFiles<Savepropertiestofile1Click>},
    TCommand{"LoadFormsLanguage", "Load L&anguage for Form(s)...", "", kSelectedForms, plFile, SaveLoad,
             OnFiles<LoadLanguageforForms1Click, kSelectedForms>},
    TCommand{"SaveProject", "Sa&ve Project...", "", kProject, plFile | plToolBar, SaveLoad,
             OnFiles<sbSaveAllClick, kProject>, "Save project", false, nullptr, "",
             "Save project|Save translations for whole project"},
    TCommand{"LoadProject", "Loa&d Project...", "", kProject, plFile | plToolBar, SaveLoad,
             OnFiles<sbLoadAllClick, kProject>, "Load project", false, nullptr, "",
             "Load project|Load translation for whole project"},
    TCommand{"LoadProjectLanguage", "Load Language for Pro&ject...", "", kProject, plFile, SaveLoad,
             OnFiles<LoadLanguageforForms1Click, kProject>},
    TCommand{"SaveProjectProperties", "Save Project Properties...", "", 0, plFile, SaveLoad,
             OnFiles<Savepropertiestofileforallforms1Click>},
    TCommand{"MergeForms", "&Merge Form(s)...", "", kMergeSelectedForms, plFile, SaveLoad,
             OnFiles<sbLoadAllClick, kMergeSelectedForms>},
    TCommand{"MergeProject", "Mer&ge Project...", "", kMergeProject, plFile, SaveLoad,
             OnFiles<sbLoadAllClick, kMergeProject>},
    TCommand{"SourceWithForm", "&With form...", "", 111, plFile | plToolBar, Source, OnScan<SourceWithForm>,
             "Source", false, nullptr, "Move the hard-coded strings of selected forms' units into the forms",
             "Source|Moves the hard-coded strings of selected forms' units into the forms"},
    TCommand{"SourceWithoutForm", "W&ithout form...", "", 0, plFile, Source, OnScan<SourceWithoutForm>},
    TCommand{"SkippedStrings", "S&kipped Strings...", "", 0, plFile, Source, OnScan<SkippedStrings>, "",
             false, nullptr, "What the last scan has passed over, and why"},
    TCommand{"ConstWithForm", "With &Form...", "", 111, plFile, ConstSection, OnScan<ConstWithForm>},
    TCommand{"ConstWithoutForm", "With&out Form...", "", 0, plFile, ConstSection, OnScan<ConstWithoutForm>},
    TCommand{"Exclude", "E&xclude from Translation...", "", 111, plFile | plToolBar, None, On<Exclude1Click>,
             "Exclude", false, nullptr, "Choose what of the selected forms is not translated",
             "Exclude|Chooses what of the selected forms is not translated"},
    TCommand{"Update", "&Update Translations", "Ctrl+U", 111, plFile | plPopup, None,
             On<Updatetranslation1Click>},
    TCommand{"Clear", "Cl&ear Translations", "", 111, plFile, None, On<ClearTranslations1Click>},
    TCommand{"ProjectSettings", "Project Settings...", "", 0, plFile, None, On<ProjectSettings>, "", false,
             HasProjectSettings},
    OfWindow("Exit", "E&xit", "", plFile, &TfrmmlLang::FormClose),
    TCommand{"CheckBadIDs", "&Check Bad String IDs", "", 112, plTools | plToolBar, None,
             OnIDs<CheckunusedIDs1Click>, "Check IDs"},
    TCommand{"CheckBadIDsInUnits", "Check Bad String IDs in Unit(s)", "", 0, plTools, None,
             OnIDs<CheckbadstringIDsinunit1Click>},
    TCommand{.Name = "ChangeTmlLangtype",
             .Caption = "Change &TmlLang Type to",
             .Tag = 112,
             .Places = plTools,
             .Entries = TypeCaptions,
             .OnEntry = ToTmlLang1Click},
    TCommand{"Dictionary", "&Dictionary", "Ctrl+M", 0, plTools, None, OnDictionary<Dictionary1Click>},
    TCommand{"Wizards", "&Wizards", "", 0, plTools, None, OnScan<Wizards1Click>, "", false, nullptr,
             "Set up all forms for translation in one pass"},
    TCommand{"FindPhrase", "&Find Phrase...", "", 111, plTools | plToolBar, None, OnPhrases<Findword1Click>,
             "Find"},
    TCommand{"ReplacePhrase", "&Replace Phrase...", "", 111, plTools | plToolBar, None,
             On<Replacephrase1Click>, "Replace"},
    TCommand{"Options", "&Options...", "", 0, plTools | plPopup | plToolBar, None, On<sbOptionsClick>,
             "Options"},
    TCommand{"ViewForm", "&View Form", "", 111, plPopup, None, On<ViewForm>},
    TCommand{"Translatesource", "Source", "", 111, plPopup, HardCoded, OnScan<SourceWithForm>},
    TCommand{"TranslateConst", "Const Section", "", 111, plPopup, HardCoded, OnScan<ConstWithForm>, "", true},
    OfExternalFiles("AddExternalFile", "Add File", 0, HasProjectSettings,
                    "Add file(s)|Adds units that are not part of the project",
                    &TfrmmlLang::tbAddExternalFileClick),
    OfExternalFiles("RemoveExternalFile", "Remove File", 111, nullptr,
                    "Remove file(s)|Takes the selected units from the list; the files stay",
                    &TfrmmlLang::tbRemoveExternalFileClick),
    OfWindow("SelectAll", "Select &All", "Ctrl+A", plPopup, &TfrmmlLang::SelectAll1Click),
    OfWindow("StayOnTop", "&Stay on Top", "", plPopup, &TfrmmlLang::StayOnTop1Click),
    OfWindow("Dockable", "&Dockable", "", plPopup, &TfrmmlLang::Dockable1Click),
    OfWindow("HelpTopics", "&Help Topics", "", plHelp, &TfrmmlLang::HelpTopics1Click),
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
