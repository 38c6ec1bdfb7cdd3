#include "setup/Dictionaryform.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "base/Counted.h"
#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "setup/Dictionaryconflicts.h"
#include "setup/Dictionaryfillform.h"
#include "setup/Dixtool.h"
#include "tables/Dixfile.h"
#include "translations/Formseries.h"
#include "windows/Filedialogs.h"

namespace tml {
namespace {

using TDictionaryAction = TActionRow<TfrmDictionary>;

constexpr std::array kDictionaryActions{
    TDictionaryAction{"acNew", "&New", "", &TfrmDictionary::acNew, nullptr, "Begins a new dictionary"},
    TDictionaryAction{"acOpen", "&Open...", "Ctrl+O", &TfrmDictionary::acOpen, nullptr, "", "", true},
    TDictionaryAction{"acSave", "&Save", "Ctrl+S", &TfrmDictionary::acSave, nullptr, "", "", true},
    TDictionaryAction{"acSaveAs", "Save &as...", "", &TfrmDictionary::acSaveAs},
    TDictionaryAction{"acUndo", "&Undo", "Ctrl+Z", &TfrmDictionary::acUndo, &TfrmDictionary::CanUndo, "", "",
                      true},
    TDictionaryAction{"acRedo", "R&edo", "Shift+Ctrl+Z", &TfrmDictionary::acRedo, &TfrmDictionary::CanRedo,
                      "", "", true},
    TDictionaryAction{"acAddEntry", "Add &entry...", "Ins", &TfrmDictionary::acAddEntry, nullptr, "",
                      "Add entry"},
    TDictionaryAction{"acDeleteEntries", "&Delete", "Del", &TfrmDictionary::acDeleteEntries,
                      &TfrmDictionary::HasEntry, "Deletes the selected entries in all languages"},
    TDictionaryAction{"acAddLanguage", "Add &language...", "", &TfrmDictionary::acAddLanguage, nullptr,
                      "Adds a language", "Language"},
    TDictionaryAction{
        "acFill", "&Fill forms...", "Ctrl+F9", &TfrmDictionary::acFill, &TfrmDictionary::HasLanguages,
        "Fills a language of the selected forms, or of all, with a preview", "Fill forms", true},
    TDictionaryAction{"acLearn", "Lea&rn from forms", "", &TfrmDictionary::acLearn, nullptr,
                      "Takes over what is translated in the selected forms, or in all", "Learn"},
    TDictionaryAction{"acHelp", "&Help", "F1", nullptr, nullptr, "", "", true},
};

constexpr const char* kSelectDictionary = "Select dictionary...";
constexpr const char* kDictionaryFilter = "XML dictionaries (*.dix)|*.dix";
constexpr const char* kNoTranslatedForms = "None of the forms is translated.";
constexpr const char* kBegin = "\"Learn\" takes over what the forms have, \"Add entry\" begins by hand";
constexpr const char* kTranslation = "translation";
constexpr const char* kTranslations = "translations";

template <typename TDialog>
TDialog FileDialog(const std::string& current) {
    TDialog dialog;
    dialog.Caption = kSelectDictionary;
    dialog.DefaultExt = "dix";
    dialog.Filter = kDictionaryFilter;
    if (!current.empty()) dialog.Files = {current};
    return dialog;
}

/// As it was in CR LF, where it was so.
std::string WithBreaksAs(const std::string& former, const std::string& text) {
    if (former.find("\r\n") == std::string::npos) return text;
    std::string paired;
    for (const char c : text)
        paired += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return paired;
}

std::string FailureText(const TFailedFills& failed) {
    std::string text = "These forms are as they were and still listed:\r\n";
    for (const auto& [file, problem] : failed)
        text += "\r\n" + (problem.empty() ? file : problem);
    return text;
}

std::string WithoutReturns(std::string text) {
    std::erase(text, '\r');
    return text;
}

std::vector<TFormRow*> AllRows(TContext& context) {
    std::vector<TFormRow*> rows;
    for (const auto& row : context.Rows.Active().Items())
        rows.push_back(row.get());
    return rows;
}

std::vector<int> EntryNumbers(std::size_t count) {
    std::vector<int> numbers(count);
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

}  // namespace

TfrmDictionary::TfrmDictionary(TContext& context, IDictionaryTool& tool) : context_(context), tool_(tool) {
    Name = "frmDictionary";
    ActiveControl = "grEntries";
    ClientWidth = 920;
    ClientHeight = 460;
    SetUpGrid();
    Actions.All = BindActions<TfrmDictionary>(*this, kDictionaryActions);
    // What there is least room for stands at the end.
    Actions.ToolBar = {"acNew", "acOpen",        "acSave",          "",      "acUndo", "acRedo",
                       "",      "acAddEntry",    "acDeleteEntries", "",      "acFill", "acLearn",
                       "",      "acAddLanguage", "acSaveAs",        "acHelp"};
    Actions.Popup = {"acUndo", "acRedo", "", "acAddEntry", "acDeleteEntries"};
}

void TfrmDictionary::SetUpGrid() {
    grEntries.Columns = {{.Caption = {}, .Width = 315, .MarksBlanks = true},
                         {.Caption = {}, .Width = 315, .MarksBlanks = true}};
    grEntries.EditColumn = 1;
    grEntries.Cell = [this](int entry, int column) {
        const int language = (column == 0 ? cbLanguage : cbTranslation).ItemIndex;
        return language < 0 ? std::string()
                            : dictionary_.Entries[static_cast<std::size_t>(entry)].Text(language);
    };
    grEntries.OnEdit = [this](int entry, const std::string& text) {
        history_.EndTyping();
        SetText(entry, cbTranslation.ItemIndex, text);
        history_.EndTyping();
    };
    grEntries.OnChange = [this] { ShowEntry(); };
}

// --- what is shown

void TfrmDictionary::Take(TDictionary dictionary, const std::string& fileName) {
    dictionary_ = std::move(dictionary);
    if (dictionary_.Languages.Empty()) dictionary_.Languages = NewLanguages();
    FileName = fileName;
    history_ = {};
    const auto settings = context_.Host.Runtime->mlLangProjectSettings;
    const int base = settings == nullptr ? -1 : dictionary_.LanguageOf(DictionaryBaseOf(*settings));
    cbLanguage.ItemIndex = std::max(base, 0);
    cbTranslation.ItemIndex = cbLanguage.ItemIndex == 0 && HasLanguages() ? 1 : 0;
    ListEntries();
    Tell(dictionary_.Entries.empty() ? kBegin : "");
}

/// Those of the form with the most languages, else those of new components; the base language is called as
/// the project's settings have it.
TStringList TfrmDictionary::NewLanguages() const {
    TStringList forms = LanguagesOf(context_, AllRows(context_));
    if (forms.Empty()) forms = SplitLangNames(context_.Settings.Get().DefaultLangNames);
    if (forms.Empty()) forms.Add("English");
    const auto settings = context_.Host.Runtime->mlLangProjectSettings;
    const std::string base = settings == nullptr ? std::string() : DictionaryBaseOf(*settings);
    if (!base.empty()) forms.Set(0, base);
    TDictionary named;
    for (const std::string& name : forms)
        named.NeedLanguage(name);
    return named.Languages;
}

void TfrmDictionary::ListEntries() {
    cbLanguage.Items = cbTranslation.Items = dictionary_.Languages;
    for (TChoiceBox* const box : {&cbLanguage, &cbTranslation})
        box->ItemIndex = std::min(box->ItemIndex, dictionary_.Languages.Count() - 1);
    grEntries.Columns[0].Caption = cbLanguage.Text();
    grEntries.Columns[1].Caption = cbTranslation.Text();
    grEntries.Assign(EntryNumbers(dictionary_.Entries.size()));
}

void TfrmDictionary::cbLanguageChange() {
    ListEntries();
    Changed();
}

void TfrmDictionary::ShowEntry() {
    const int entry = grEntries.Current();
    history_.EndTypingUnless(entry);
    memText = entry < 0 ? std::string() : WithoutReturns(grEntries.Cell(entry, 0));
    memTranslation = entry < 0 ? std::string() : WithoutReturns(grEntries.Cell(entry, 1));
    Changed();
}

void TfrmDictionary::Show(const std::vector<int>& entries, const std::string& notice) {
    ListEntries();
    // What was selected goes by places, which are those of others now.
    grEntries.SelectOnly([](int) { return false; });
    const auto isHidden = [this](int entry) { return grEntries.PlaceOf(entry) < 0; };
    if (std::any_of(entries.begin(), entries.end(), isHidden)) grEntries.SetFilter("");
    if (!entries.empty()) grEntries.SetCurrent(entries.front());
    if (entries.size() > 1) grEntries.Select(entries);
    Tell(notice);
}

void TfrmDictionary::Tell(const std::string& notice) {
    Caption = Format("Dictionary - %s%s", FileName.empty() ? std::string("new") : FileNameOf(FileName),
                     IsModified() ? " *" : "");
    Status = Counted(static_cast<std::int64_t>(dictionary_.Entries.size()), "entry", "entries");
    if (!notice.empty()) Status += ". " + notice;
    Changed();
}

// --- edits

void TfrmDictionary::SetText(int entry, int language, const std::string& text) {
    if (entry < 0 || language < 0) return;
    TDictionaryEntry& changed = dictionary_.Entries[static_cast<std::size_t>(entry)];
    const std::string former = changed.Text(language);
    if (text == WithoutReturns(former)) return;
    history_.NoteTyping(dictionary_, entry, language);
    changed.SetText(language, WithBreaksAs(former, text));
    ShowEntry();
    const int first = text.empty() ? -1 : dictionary_.Find(language, changed.Text(language));
    const bool isKnown = language == cbLanguage.ItemIndex && first >= 0 && first != entry;
    Tell(isKnown ? "An entry above has this text, too: that one counts" : "");
}

void TfrmDictionary::memTextChange(const std::string& text) {
    SetText(grEntries.Current(), cbLanguage.ItemIndex, text);
}

void TfrmDictionary::memTranslationChange(const std::string& text) {
    SetText(grEntries.Current(), cbTranslation.ItemIndex, text);
}

void TfrmDictionary::acAddEntry() {
    std::string text;
    if (!context_.Dialogs().InputQuery("Add Entry", cbLanguage.Text() + ":", text) || text.empty()) return;
    if (const int present = dictionary_.Find(cbLanguage.ItemIndex, text); present >= 0)
        return Show({present}, Format("\"%s\" is there already", text));
    TDictionaryEntry entry;
    entry.SetText(cbLanguage.ItemIndex, text);
    const std::size_t place = dictionary_.PlaceFor(entry);
    history_.Take(dictionary_, {dictionary_.Languages, {}, {{place, entry}}});
    Show({static_cast<int>(place)});
}

void TfrmDictionary::acDeleteEntries() {
    const std::vector<int> entries = grEntries.Affected();
    std::vector<std::size_t> gone(entries.begin(), entries.end());
    std::sort(gone.begin(), gone.end());
    history_.Take(dictionary_, {dictionary_.Languages, gone, {}});
    Show({}, Counted(static_cast<std::int64_t>(gone.size()), "entry is", "entries are") + " deleted");
}

void TfrmDictionary::acAddLanguage() {
    std::string name;
    if (!context_.Dialogs().InputQuery("Add Language", "Language:", name) || name.empty()) return;
    TDictionary named;
    named.Languages = dictionary_.Languages;
    cbTranslation.ItemIndex = named.NeedLanguage(name);
    if (named.Languages != dictionary_.Languages) history_.Take(dictionary_, {named.Languages, {}, {}});
    Show({});
}

// --- files

void TfrmDictionary::Open(const std::string& fileName) {
    if (fileName.empty()) return Take({}, {});
    std::string problem;
    try {
        TDictionary loaded = tool_.Load(fileName);
        if (!MayLose()) return;
        Take(std::move(loaded), fileName);
        const std::string note = NewerVersionNote(dictionary_, fileName);
        if (!note.empty()) context_.Dialogs().MessageDlg(note, TMsgDlgType::mtWarning, {mrOk});
        return;
    } catch (const EBadInput& error) {
        problem = error.what();
    }
    const bool isNew = !SameText(ExtensionOf(fileName), ".dic") && !context_.Host.Files->Stat(fileName);
    // What is open stays when another one is damaged.
    if (isNew || dictionary_.Languages.Empty()) Take({}, isNew ? fileName : std::string());
    if (isNew) return Tell(Format("%s is not there yet: \"Save\" makes it", fileName));
    context_.Dialogs().MessageDlg(problem, TMsgDlgType::mtError, {mrOk});
}

bool TfrmDictionary::MayLose() {
    if (!IsModified()) return true;
    const int answer = context_.Dialogs().MessageDlg("Save the changes of the dictionary?",
                                                     TMsgDlgType::mtConfirmation, {mrYes, mrNo, mrCancel});
    if (answer == mrYes) acSave();
    // Asked once, however often the window is about to close.
    if (answer == mrNo) history_.NoteSaved();
    return !IsModified();
}

bool TfrmDictionary::FormCloseQuery() {
    return MayLose();
}

void TfrmDictionary::acNew() {
    if (MayLose()) Take({}, {});
}

void TfrmDictionary::acOpen() {
    auto dialog = FileDialog<TOpenDialog>(FileName);
    dialog.FileMustExist = true;
    if (context_.Dialogs().ShowModal(dialog) == mrOk) Open(dialog.Files.front());
}

void TfrmDictionary::acSave() {
    if (FileName.empty()) return acSaveAs();
    SaveTo(FileName);
}

void TfrmDictionary::acSaveAs() {
    const auto settings = context_.Host.Runtime->mlLangProjectSettings;
    const bool hasProject = settings != nullptr && !settings->GetFileName().empty();
    auto dialog = FileDialog<TSaveDialog>(
        FileName.empty() && hasProject ? WithExtension(settings->GetFileName(), ".dix") : FileName);
    dialog.OverwritePrompt = true;
    if (context_.Dialogs().ShowModal(dialog) == mrOk) SaveTo(dialog.Files.front());
}

void TfrmDictionary::SaveTo(const std::string& fileName) {
    try {
        tool_.Save(fileName, dictionary_);
    } catch (const EBadInput& error) {
        context_.Dialogs().MessageDlg(error.what(), TMsgDlgType::mtError, {mrOk});
        return;
    }
    FileName = fileName;
    history_.NoteSaved();
    const auto settings = context_.Host.Runtime->mlLangProjectSettings;
    const bool isOffered = settings != nullptr && DefaultDictionaryOf(*settings).empty();
    Tell(isOffered ? "Saved. \"Project Settings...\" can make it the project's" : "Saved");
}

// --- forms

std::vector<TFormRow*> TfrmDictionary::Rows() const {
    std::vector<TFormRow*> rows = SelectedRows(context_);
    return rows.empty() ? AllRows(context_) : rows;
}

std::vector<TFormTables> TfrmDictionary::Forms() {
    std::vector<TFormTables> forms = ReadForms(context_, Rows());
    if (forms.empty()) context_.Dialogs().MessageDlg(kNoTranslatedForms, TMsgDlgType::mtInformation, {mrOk});
    return forms;
}

void TfrmDictionary::acFill() {
    std::vector<TFormTables> forms = Forms();
    if (forms.empty()) return;
    const auto settings = context_.Host.Runtime->mlLangProjectSettings;
    TfrmFillDictionary fill(std::move(forms), dictionary_, FileName, settings.get());
    fill.OnFill = [this](const std::vector<TFormFills>& taken) {
        TFailedFills failed = FillForms(context_, taken);
        if (!failed.empty()) context_.Dialogs().MessageDlg(FailureText(failed), TMsgDlgType::mtError, {mrOk});
        return failed;
    };
    context_.Dialogs().ShowModal(fill);
    if (fill.Filled() > 0) Tell("Filled: " + Counted(fill.Filled(), kTranslation, kTranslations));
}

void TfrmDictionary::acLearn() {
    const std::vector<TFormTables> forms = Forms();
    if (forms.empty()) return;
    const auto settings = context_.Host.Runtime->mlLangProjectSettings;
    const std::string base = settings == nullptr ? std::string() : DictionaryBaseOf(*settings);
    TDictionaryLearning learning;
    std::string problems;
    for (const TFormTables& form : forms)
        if (form.Problem.empty())
            LearnForm(learning, form, base, {});
        else
            problems += (problems.empty() ? "" : "\r\n") + form.Problem;
    const TDictionary before = dictionary_;
    TLearned learned = learning.Into(dictionary_, false);
    if (learned.Added > 0) history_.Note(StepBack(dictionary_, before));
    cbTranslation.ItemIndex = std::max(cbTranslation.ItemIndex, HasLanguages() ? 1 : 0);
    if (!problems.empty()) context_.Dialogs().MessageDlg(problems, TMsgDlgType::mtError, {mrOk});
    TellLearned(std::move(learned), forms.size());
}

void TfrmDictionary::TellLearned(TLearned learned, std::size_t forms) {
    Show({}, Format("Learned from %s: %s, %s. Known before: %s",
                    Counted(static_cast<std::int64_t>(forms), "form", "forms"),
                    Counted(learned.Added, kTranslation, kTranslations),
                    Counted(learned.Entries, "new entry", "new entries"),
                    Counted(learned.Known, kTranslation, kTranslations)));
    if (learned.Conflicts.empty()) return;
    TfrmDictionaryConflicts conflicts(std::move(learned.Conflicts));
    context_.Dialogs().ShowModal(conflicts);
}

// --- the command

IDictionaryTool& DictionaryTool(TContext& context, TDictionaryMemory& memory) {
    if (memory.Tool == nullptr && memory.CreateExternalTool) memory.Tool = memory.CreateExternalTool();
    if (memory.Tool == nullptr) memory.Tool = std::make_shared<TDixTool>(context);
    return *memory.Tool;
}

void Dictionary1Click(TContext& context, TDictionaryMemory& memory) {
    const auto settings = context.Host.Runtime->mlLangProjectSettings;
    const std::string fileName = settings == nullptr ? std::string() : DefaultDictionaryOf(*settings);
    DictionaryTool(context, memory).Show(fileName);
}

}  // namespace tml
