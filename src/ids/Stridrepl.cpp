#include "ids/Stridrepl.h"

#include <algorithm>
#include <array>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "core/Modules.h"
#include "ids/Idchecks.h"
#include "source/Charclass.h"
#include "source/Language.h"
#include "source/Literals.h"

namespace tml {
namespace {

using TStrReplaceAction = TActionRow<TfrmStrReplace>;
constexpr std::array kStrReplaceActions{
    TStrReplaceAction{"Delete", "&Delete", "Del", &TfrmStrReplace::Delete1Click,
                      &TfrmStrReplace::HasSelection},
    TStrReplaceAction{"InvertSelection", "&Invert selection", "Ctrl+I",
                      &TfrmStrReplace::Invertselection1Click, &TfrmStrReplace::HasLines},
    TStrReplaceAction{"EditResultLine", "&Edit result line...", "Ctrl+E",
                      &TfrmStrReplace::Editresultline1Click, &TfrmStrReplace::HasSelection},
};

/// The calls whose lines are offered; those of wide texts are left out on purpose.
constexpr std::array<std::string_view, 4> kCalls{"GetText(", "GetTextOrDefault(", "GetTextC(",
                                                 "GetTextOrDefaultC("};
constexpr std::size_t kMostLeft = 20;

std::string Quoted(const std::string& id, const TLanguage& language) {
    return Format("%s%s%s", language.STRDELIM, EncodeLiteralBody(id, language), language.STRDELIM);
}

std::string Replaced(std::string text, const std::string& what, const std::string& by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size())
        text.replace(at, what.size(), by);
    return text;
}

/// The place of the first call, by kind; behind the end where there is none.
std::size_t CallIn(const std::string& line) {
    for (const std::string_view call : kCalls)
        if (const std::size_t at = line.find(call); at != std::string::npos) return at;
    return line.size();
}

class TIDChange {
  public:
    TIDChange(TContext& context, std::string formName, std::string oldID, std::string newID)
        : context_(context),
          formName_(std::move(formName)),
          oldID_(std::move(oldID)),
          newID_(std::move(newID)),
          window_(context, Units(), CurrentUnit()) {}

    void Run() {
        // The ID has changed all the same: its uses are told.
        if (context_.Dialogs().ShowModal(window_) != mrOk) return ListLeft();
        for (const std::string& unit : window_.lbSelectedUnits.Items)
            if (!Ask(unit)) break;
        TAllSteps steps;
        steps.Try([this] { Write(); });
        ListLeft();
        steps.Finish();
    }

  private:
    TStringList Units() const;
    std::string CurrentUnit() const;
    bool Ask(const std::string& unit);
    bool AskText(const std::string& unit, IOTASourceEditor& editor, bool isHeader);
    void Write();
    void WriteUnit(const TSourceChange& change);
    void ListLeft();
    void Tell(const std::string& text, TMsgDlgType type) {
        context_.Dialogs().MessageDlg(text, type, {mrOk});
    }

    TContext& context_;
    std::string formName_, oldID_, newID_;
    TfrmStrReplace window_;
    std::vector<std::pair<std::string, TSourceChange>> changes_;  ///< by unit
};

TStringList TIDChange::Units() const {
    TStringList units;
    const auto project = GetActiveProject(context_);
    if (project == nullptr) return units;
    const std::string extensions = project->IsCPPProject() ? ".CPP|.C|" : ".PAS|.DPR|";
    for (int i = 0; i < project->GetModuleCount(); ++i) {
        const std::string file = project->GetModule(i).FileName;
        if (Contains(extensions, UpperCase(ExtensionOf(file)) + "|")) units.Add(file);
    }
    return units;
}

std::string TIDChange::CurrentUnit() const {
    // The forms list may be empty: the translation editor opens from the form designer, too.
    IOTAModuleServices* services = GetModuleServices(context_);
    const auto module = services == nullptr ? nullptr : services->FindFormModule(formName_);
    if (module != nullptr) return module->GetFileName();
    const TFormRow* row = context_.Rows.FormNames.FindForm(formName_);
    return row == nullptr ? std::string() : row->FileName;
}

/// False where the person ends the change. The header of a C++ unit follows it, where it has lines.
bool TIDChange::Ask(const std::string& unit) {
    try {
        const TModuleLease opened(context_, unit);
        const auto module = GetModuleFromFileName(context_, unit);
        for (int i = 0; i < module->GetSourceEditorCount(); ++i)
            if (!AskText(unit, *module->GetSourceEditor(i), i > 0)) return false;
    } catch (const EmlLangSilent&) {
        Tell("Couldn't retrieve unit source.\rUnit skipped!", TMsgDlgType::mtError);
    }
    return true;
}

bool TIDChange::AskText(const std::string& unit, IOTASourceEditor& editor, bool isHeader) {
    const auto text = editor.GetText();
    const auto lines = LinesWithID(*text, LanguageOf(editor.GetFileName()), oldID_, newID_);
    if (lines.empty()) {
        if (!isHeader) Tell("There is no lines to modify in unit source.", TMsgDlgType::mtInformation);
        return true;
    }
    window_.ShowLines(editor.GetFileName(), lines);
    if (context_.Dialogs().ShowModal(window_) != mrOk) return false;
    TSourceChange change{editor.GetFileName(), text, {}};
    for (const auto& row : window_.lvSourceLines.Items())
        if (row->Result != row->Content)
            change.Edits.push_back({row->Begin, row->Begin + row->Content.size(), row->Result});
    if (!change.Edits.empty()) changes_.emplace_back(unit, std::move(change));
    return true;
}

/// A text that cannot be changed does not keep the others from it.
void TIDChange::Write() {
    if (changes_.empty()) return;
    const auto scope = BeginCommand(context_, "Change string ID");
    TAllSteps steps;
    for (const auto& [unit, change] : changes_) {
        try {
            // It stays open: nothing of this is written to the disk.
            if (!OpenFile(context_, unit, false)) throw EmlLangSilent();
            WriteUnit(change);
        } catch (const EmlLangSilent&) {
            Tell("There was an error occured during source update!", TMsgDlgType::mtError);
        } catch (const EBadInput&) {
            Tell("There was an error occured during source update!", TMsgDlgType::mtError);
            steps.Try([] { throw; });
        }
    }
    scope->Commit();
    steps.Finish();
}

void TIDChange::WriteUnit(const TSourceChange& change) {
    TChangeSet set;
    set.Title = "Change string ID";
    set.Sources.push_back(change);
    GetModuleServices(context_)->ApplyChangeSet(set);
}

void TIDChange::ListLeft() {
    TProjectIDs ids(context_);
    std::string list;
    const std::vector<TIDUse> left = ids.Uses().UsesOf(formName_, oldID_);
    for (std::size_t i = 0; i < std::min(left.size(), kMostLeft); ++i)
        list += "\r\n" + left[i].Text();
    if (left.size() > kMostLeft) list += Format("\r\nand %d more", left.size() - kMostLeft);
    if (!list.empty())
        Tell(Format("These uses of %s were left:%s", oldID_, list), TMsgDlgType::mtInformation);
}

}  // namespace

std::string TSourceLineRow::Cell(std::size_t column) const {
    if (column == 0) return std::to_string(Line);
    return column == 1 ? Content : column == 2 ? Result : std::string();
}

TfrmStrReplace::TfrmStrReplace(TContext& context, TStringList units, const std::string& current)
    : context_(context) {
    Name = "frmStrReplace";
    Caption = "String ID Replacement";
    if (const int own = units.IndexOf(current); own >= 0) units.Delete(own);
    lbUnits = TNamesBox(std::move(units));
    if (!current.empty()) lbSelectedUnits = TNamesBox(TStringList({current}));
    if (const auto project = GetActiveProject(context)) folder_ = FolderOf(project->GetFileName());
    lvSourceLines.Columns = {{"Line #", 65}, {"Line content", 262}, {"Result line", 262}};
    Actions.All = BindActions<TfrmStrReplace>(*this, kStrReplaceActions);
    Actions.Popup = {"Delete", "InvertSelection", "", "EditResultLine"};
}

std::string TfrmStrReplace::ShownName(const std::string& unit) const {
    return RelativeTo(folder_, unit);
}

void TfrmStrReplace::Move(TNamesBox& from, TNamesBox& to, bool all) {
    for (std::size_t i = 0; i < from.Selected.size(); ++i)
        if (all || from.Selected[i]) {
            to.Items.Add(from.Items[static_cast<int>(i)]);
            to.Selected.push_back(false);
        }
    if (all) from.Selected.assign(from.Selected.size(), true);
    EraseSelected(from.Items, from.Selected);
    Changed();
}

void TfrmStrReplace::ShowLines(const std::string& unit, const std::vector<TSourceLineRow>& lines) {
    lvSourceLines.Clear();
    for (const TSourceLineRow& line : lines)
        lvSourceLines.Add(line);
    lbUnitName =
        Format("Unit file: %s\rSource line(s) with old string identifier that will be modified:", unit);
    btReplaceCaption = "&Replace";
    Panel = TPanel::FoundLines;
    ModalResult = mrNone;
}

void TfrmStrReplace::Delete1Click() {
    if (!HasSelection() || context_.Dialogs().MessageDlg("Delete selected row(s)?",
                                                         TMsgDlgType::mtConfirmation, {mrYes, mrNo}) != mrYes)
        return;
    std::vector<TSourceLineRow> kept;
    for (const auto& row : lvSourceLines.Items())
        if (!row->Selected) kept.push_back(*row);
    lvSourceLines.Clear();
    for (const TSourceLineRow& row : kept)
        lvSourceLines.Add(row);
    Changed();
}

void TfrmStrReplace::Invertselection1Click() {
    for (const auto& row : lvSourceLines.Items())
        row->Selected = !row->Selected;
    lvSourceLines.Touch();
    Changed();
}

void TfrmStrReplace::Editresultline1Click() {
    TSourceLineRow* row = lvSourceLines.FirstSelected();
    if (row == nullptr) return;
    std::string result = row->Result;
    if (!context_.Dialogs().InputQuery("Modifying result line", "Type new value for result line:", result))
        return;
    row->Result = result;
    lvSourceLines.Touch();
    Changed();
}

void TfrmStrReplace::sbHelpClick() {
    context_.Dialogs().ShowHelp(Name);
}

std::vector<TSourceLineRow> LinesWithID(std::string_view text, const TLanguage& language,
                                        const std::string& oldID, const std::string& newID) {
    const std::string quotedOld = Quoted(oldID, language);
    const std::string quotedNew = Quoted(newID, language);
    std::vector<TSourceLineRow> found;
    int number = 0;
    for (std::size_t begin = 0; begin < text.size(); ++number) {
        const std::string line(text.substr(begin, LineEnd(text, begin) - begin));
        const std::size_t id = line.find(quotedOld);
        if (id != std::string::npos && CallIn(line) < id)
            found.emplace_back(number, begin, line, Replaced(line, quotedOld, quotedNew));
        begin = std::min(text.find('\n', begin), text.size() - 1) + 1;
    }
    return found;
}

void OnChangeStrID(TContext& context, const std::string& formName, const std::string& oldID,
                   const std::string& newID) {
    if (oldID == newID) return;
    if (oldID.empty() || newID.empty())
        throw EBadInput("", 0, "a string ID is empty", "Give the string an ID that is not empty");
    TIDChange(context, formName, oldID, newID).Run();
}

TChangeStrID ChangeStrIDOf(TContext& context) {
    return [&context](const std::string& formName, const std::string& oldID, const std::string& newID) {
        OnChangeStrID(context, formName, oldID, newID);
    };
}

}  // namespace tml
