#include "setup/Dictionaryform.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "base/Errors.h"
#include "base/Format.h"
#include "setup/Dictionaryfillform.h"
#include "setup/Dixtool.h"
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
    TDictionaryAction{"acAddEntry", "Add &entry...", "Ins", &TfrmDictionary::acAddEntry, nullptr, "",
                      "Add entry"},
    TDictionaryAction{"acDeleteEntries", "&Delete", "Del", &TfrmDictionary::acDeleteEntries,
                      &TfrmDictionary::HasEntry, "Deletes the selected entries in all languages"},
    TDictionaryAction{"acAddLanguage", "Add &language...", "", &TfrmDictionary::acAddLanguage},
    TDictionaryAction{
        "acFill", "&Fill forms...", "Ctrl+F9", &TfrmDictionary::acFill, &TfrmDictionary::HasLanguages,
        "Fills a language of the selected forms, or of all, with a preview", "Fill forms", true},
    TDictionaryAction{"acLearn", "Lea&rn from forms", "", &TfrmDictionary::acLearn, nullptr,
                      "Takes over what is translated in the selected forms, or in all"},
    TDictionaryAction{"acHelp", "&Help", "F1", nullptr, nullptr, "", "", true},
};

constexpr const char* kSelectDictionary = "Select dictionary...";
constexpr const char* kDictionaryFilter = "XML dictionaries (*.dix)|*.dix";
constexpr const char* kNoTranslatedForms = "None of the forms is translated.";

enum TConflictColumn { ccLanguage, ccBase, ccTaken, ccOthers };

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

std::string WithoutReturns(std::string text) {
    std::erase(text, '\r');
    return text;
}

/// Those that new components have.
TStringList NewLanguages(const TSettingValues& settings) {
    const TStringList names = SplitLangNames(settings.DefaultLangNames);
    return names.Empty() ? TStringList({"English"}) : names;
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
    ClientWidth = 760;
    ClientHeight = 460;
    grEntries.Columns = {{.Caption = {}, .Width = 315, .MarksBlanks = true},
                         {.Caption = {}, .Width = 315, .MarksBlanks = true}};
    grEntries.EditColumn = 1;
    grEntries.Cell = [this](int entry, int column) {
        const int language = (column == 0 ? cbLanguage : cbTranslation).ItemIndex;
        return language < 0 ? std::string()
                            : dictionary_.Entries[static_cast<std::size_t>(entry)].Text(language);
    };
    grEntries.OnEdit = [this](int entry, const std::string& text) {
        SetText(entry, cbTranslation.ItemIndex, text);
    };
    grEntries.OnChange = [this] { ShowEntry(); };
    Actions.All = BindActions<TfrmDictionary>(*this, kDictionaryActions);
    Actions.ToolBar = {"acNew",         "acOpen", "acSave", "acSaveAs", "", "acAddEntry", "acDeleteEntries",
                       "acAddLanguage", "",       "acFill", "acLearn",  "", "acHelp"};
    Actions.Popup = {"acAddEntry", "acDeleteEntries"};
    Take({}, {});
}

// --- what is shown

void TfrmDictionary::Take(TDictionary dictionary, const std::string& fileName) {
    dictionary_ = std::move(dictionary);
    if (dictionary_.Languages.Empty()) dictionary_.Languages = NewLanguages(context_.Settings.Get());
    FileName = fileName;
    modified_ = false;
    const auto settings = context_.Host.Runtime->mlLangProjectSettings;
    const int base = settings == nullptr ? -1 : dictionary_.LanguageOf(DictionaryBaseOf(*settings));
    cbLanguage.ItemIndex = std::max(base, 0);
    cbTranslation.ItemIndex = cbLanguage.ItemIndex == 0 && HasLanguages() ? 1 : 0;
    ListEntries();
    Tell({});
}

void TfrmDictionary::ListEntries() {
    cbLanguage.Items = cbTranslation.Items = dictionary_.Languages;
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
    memText = entry < 0 ? std::string() : WithoutReturns(grEntries.Cell(entry, 0));
    memTranslation = entry < 0 ? std::string() : WithoutReturns(grEntries.Cell(entry, 1));
    Changed();
}

void TfrmDictionary::Tell(const std::string& notice) {
    Caption = Format("Dictionary - %s%s", FileName.empty() ? std::string("new") : FileNameOf(FileName),
                     modified_ ? " *" : "");
    Status = Format("Entries: %d", dictionary_.Entries.size());
    if (!notice.empty()) Status += ". " + notice;
    Changed();
}

void TfrmDictionary::Edited(const std::string& notice) {
    modified_ = true;
    Tell(notice);
}

// --- edits

void TfrmDictionary::SetText(int entry, int language, const std::string& text) {
    if (entry < 0 || language < 0) return;
    TDictionaryEntry& changed = dictionary_.Entries[static_cast<std::size_t>(entry)];
    const std::string former = changed.Text(language);
    if (text == WithoutReturns(former)) return;
    changed.SetText(language, WithBreaksAs(former, text));
    ShowEntry();
    Edited();
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
    TDictionaryEntry entry;
    entry.SetText(cbLanguage.ItemIndex, text);
    dictionary_.Merge({entry});
    ListEntries();
    const auto& entries = dictionary_.Entries;
    grEntries.SetCurrent(
        static_cast<int>(std::find(entries.begin(), entries.end(), entry) - entries.begin()));
    Edited();
}

void TfrmDictionary::acDeleteEntries() {
    std::vector<bool> gone(dictionary_.Entries.size());
    for (const int entry : grEntries.Affected())
        gone[static_cast<std::size_t>(entry)] = true;
    std::size_t entry = 0;
    std::erase_if(dictionary_.Entries, [&](const TDictionaryEntry&) { return gone[entry++]; });
    ListEntries();
    Edited();
}

void TfrmDictionary::acAddLanguage() {
    std::string name;
    if (!context_.Dialogs().InputQuery("Add Language", "Language:", name) || name.empty()) return;
    const int languages = dictionary_.Languages.Count();
    cbTranslation.ItemIndex = dictionary_.NeedLanguage(name);
    ListEntries();
    if (dictionary_.Languages.Count() > languages) return Edited();
    Changed();
}

// --- files

void TfrmDictionary::Open(const std::string& fileName) {
    try {
        Take(fileName.empty() ? TDictionary() : tool_.Load(fileName), fileName);
    } catch (const EBadInput& error) {
        Take({}, {});
        context_.Dialogs().MessageDlg(error.what(), TMsgDlgType::mtError, {mrOk});
    }
}

bool TfrmDictionary::MayLose() {
    if (!modified_) return true;
    const int answer = context_.Dialogs().MessageDlg("Save the changes of the dictionary?",
                                                     TMsgDlgType::mtConfirmation, {mrYes, mrNo, mrCancel});
    if (answer == mrYes) acSave();
    // Asked once, however often the window is about to close.
    if (answer == mrNo) modified_ = false;
    return !modified_;
}

bool TfrmDictionary::FormCloseQuery() {
    return MayLose();
}

void TfrmDictionary::acNew() {
    if (MayLose()) Take({}, {});
}

void TfrmDictionary::acOpen() {
    if (!MayLose()) return;
    auto dialog = FileDialog<TOpenDialog>(FileName);
    dialog.FileMustExist = true;
    if (context_.Dialogs().ShowModal(dialog) == mrOk) Open(dialog.Files.front());
}

void TfrmDictionary::acSave() {
    if (FileName.empty()) return acSaveAs();
    SaveTo(FileName);
}

void TfrmDictionary::acSaveAs() {
    auto dialog = FileDialog<TSaveDialog>(FileName);
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
    modified_ = false;
    Tell("Saved");
}

// --- forms

std::vector<TFormRow*> TfrmDictionary::Rows() const {
    std::vector<TFormRow*> rows = SelectedRows(context_);
    if (rows.empty())
        for (const auto& row : context_.Rows.Active().Items())
            rows.push_back(row.get());
    return rows;
}

void TfrmDictionary::acFill() {
    const auto settings = context_.Host.Runtime->mlLangProjectSettings;
    std::vector<TFormTables> forms = ReadForms(context_, Rows());
    if (forms.empty()) {
        context_.Dialogs().MessageDlg(kNoTranslatedForms, TMsgDlgType::mtInformation, {mrOk});
        return;
    }
    TfrmFillDictionary fill(std::move(forms), dictionary_, FileName, settings.get());
    if (context_.Dialogs().ShowModal(fill) != mrOk) return;
    const std::vector<TFormFills> taken = fill.Taken();
    FillForms(context_, taken);
    const auto count = [](std::size_t sum, const TFormFills& form) { return sum + form.Fills.size(); };
    Tell(Format("Filled: %d", std::accumulate(taken.begin(), taken.end(), std::size_t{0}, count)));
}

void TfrmDictionary::acLearn() {
    const auto settings = context_.Host.Runtime->mlLangProjectSettings;
    const std::string base = settings == nullptr ? std::string() : DictionaryBaseOf(*settings);
    TDictionaryLearning learning;
    std::string problems;
    for (const TFormTables& form : ReadForms(context_, Rows()))
        if (form.Problem.empty())
            LearnForm(learning, form, base, {});
        else
            problems += (problems.empty() ? "" : "\r\n") + form.Problem;
    TLearned learned = learning.Into(dictionary_, false);
    cbTranslation.ItemIndex = std::max(cbTranslation.ItemIndex, HasLanguages() ? 1 : 0);
    ListEntries();
    const std::string notice = Format("Learned: %d, known: %d", learned.Added, learned.Known);
    if (learned.Added > 0)
        Edited(notice);
    else
        Tell(notice);
    if (!problems.empty()) context_.Dialogs().MessageDlg(problems, TMsgDlgType::mtError, {mrOk});
    if (learned.Conflicts.empty()) return;
    TfrmDictionaryConflicts conflicts(std::move(learned.Conflicts));
    context_.Dialogs().ShowModal(conflicts);
}

// --- conflicts

TfrmDictionaryConflicts::TfrmDictionaryConflicts(std::vector<TLearnConflict> conflicts)
    : conflicts_(std::move(conflicts)) {
    Name = "frmDictionaryConflicts";
    Caption = "Several Translations";
    ActiveControl = "grConflicts";
    ClientWidth = 720;
    ClientHeight = 320;
    lblConflicts =
        "These texts are translated in more than one way. The dictionary has the translation that is taken; "
        "how often the forms have each one stands behind it.";
    grConflicts.Columns = {{.Caption = "Language", .Width = 90},
                           {.Caption = "Text", .Width = 190, .MarksBlanks = true},
                           {.Caption = "Taken", .Width = 190, .MarksBlanks = true},
                           {.Caption = "In the forms", .Width = 230, .MarksBlanks = true}};
    grConflicts.Cell = [this](int conflict, int column) { return Cell(conflict, column); };
    grConflicts.OnChange = [this] { Changed(); };
    grConflicts.Assign(EntryNumbers(conflicts_.size()));
}

std::string TfrmDictionaryConflicts::Cell(int index, int column) const {
    const TLearnConflict& conflict = conflicts_[static_cast<std::size_t>(index)];
    switch (column) {
        case ccLanguage:
            return conflict.Language;
        case ccBase:
            return conflict.Base;
        case ccTaken:
            return conflict.Taken;
        case ccOthers:
        default:
            break;
    }
    std::string choices;
    for (const TLearnedChoice& choice : conflict.Choices)
        choices += Format("%s%s (%d)", choices.empty() ? "" : ", ", choice.Text, choice.Count);
    return choices;
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
