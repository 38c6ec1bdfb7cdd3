#include "ids/Badidsform.h"

#include <algorithm>
#include <map>
#include <unordered_map>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "ids/Idchecks.h"
#include "ids/Transeditor.h"
#include "scan/Selunit.h"

namespace tml {
namespace {

const std::string kIDFormKey = "\\Software\\Velmora\\TmlLang\\IDForm";
const std::vector<TListColumn> kBadIDColumns{
    {"String ID", 75}, {"Type", 220}, {"Info", 90}, {"Use", 140}, {"File Name", 200}};
constexpr TShortCut kEnterKey = 0x0D;
constexpr std::size_t kMostUsesNamed = 10;

using TBadIDsAction = TActionRow<TfrmBadIDs>;
constexpr std::array kBadIDsActions{
    TBadIDsAction{"ViewSource", "View Source", "Ctrl+V", &TfrmBadIDs::ShowSource1Click,
                  &TfrmBadIDs::CanShowSource},
    TBadIDsAction{"Delete", "Delete", "Ctrl+Del", &TfrmBadIDs::Delete1Click, &TfrmBadIDs::CanDelete},
};

void Tell(TContext& context, const std::string& text, TMsgDlgType type) {
    context.Dialogs().HideProgress();
    context.Dialogs().MessageDlg(text, type, {mrOk});
}

/// A new window in the place of a former one, whose column widths it takes over.
TfrmBadIDs& NewWindow(TContext& context, TIDsMemory& memory) {
    const std::vector<TListColumn> columns =
        memory.BadIDs == nullptr ? std::vector<TListColumn>() : memory.BadIDs->lvIDs.Columns;
    memory.BadIDs.reset();
    memory.BadIDs = std::make_unique<TfrmBadIDs>(context);
    auto& fresh = memory.BadIDs->lvIDs.Columns;
    for (std::size_t i = 0; i < std::min(columns.size(), fresh.size()); ++i)
        fresh[i].Width = columns[i].Width;
    return *memory.BadIDs;
}

/// Checks files one by one, with the progress of them; what is found is judged in the end.
class TCheckSeries {
  public:
    TCheckSeries(TContext& context, std::size_t count) : context_(context), ids_(context), count_(count) {}

    void Check(const std::string& formName, const std::string& fileName) {
        if (count_ > 1 && !context_.Dialogs().ShowProgress("Checking...", static_cast<int>(done_++),
                                                           static_cast<int>(count_)))
            throw EmlLangSilent();
        try {
            for (TBadID& bad : CheckIDInFile(context_, ids_, formName, fileName))
                found_.push_back(std::move(bad));
        } catch (const EmlLangSilent&) {
            Tell(context_, Format("Couldnot open file:\r%s\r\nUnit skipped!", fileName),
                 TMsgDlgType::mtError);
        }
    }

    bool HasFound() const { return !found_.empty(); }
    std::vector<TBadID> Judged() {
        ids_.Judge(found_);
        return std::move(found_);
    }

  private:
    TContext& context_;
    TProjectIDs ids_;
    std::size_t count_;
    std::size_t done_ = 0;
    std::vector<TBadID> found_;
    TProgressEnd end_{context_.Dialogs()};
};

void ShowFound(TContext& context, TfrmBadIDs& window, TCheckSeries& series) {
    window.Add(series.Judged());
    context.Dialogs().HideProgress();
    context.Dialogs().Show(window);
}

std::vector<const TFormRow*> SelectedForms(TContext& context) {
    std::vector<const TFormRow*> rows;
    for (const auto& row : context.Rows.FormNames.Items())
        if (row->Selected) rows.push_back(row.get());
    return rows;
}

/// The rows whose deletion the person confirms; the answer for all holds for the rest.
std::vector<const TBadIDRow*> ConfirmedRows(TContext& context, const TfrmBadIDs& window) {
    std::vector<const TBadIDRow*> confirmed;
    TModalResult answer = mrNone;
    for (const auto& row : window.lvIDs.Items()) {
        const TFormRow* form = context.Rows.FormNames.FindFile(row->Bad.FileName);
        if (!row->Selected || form == nullptr || !form->HasComponent()) continue;
        if (answer != mrYesToAll)
            answer =
                context.Dialogs().MessageDlg(Format("This will delete %s from %s.%s! Continue?", row->Bad.ID,
                                                    form->FormName, form->Component.ComponentName),
                                             TMsgDlgType::mtWarning, {mrYes, mrNo, mrCancel, mrYesToAll});
        if (answer == mrYes || answer == mrYesToAll) confirmed.push_back(row.get());
        if (answer != mrYes && answer != mrNo && answer != mrYesToAll) break;
    }
    return confirmed;
}

/// Takes those out that something of the project asks for, or may ask for, unless the person wants them gone
/// all the same: with them a working text would go.
void KeepUsed(TContext& context, std::vector<const TBadIDRow*>& confirmed) {
    const auto isUnused = [](const TBadIDRow* row) { return row->Bad.Use.Kind == TIDUseKind::Unused; };
    std::string list;
    std::size_t used = 0;
    for (const TBadIDRow* row : confirmed)
        if (!isUnused(row) && used++ < kMostUsesNamed)
            list += Format("\r%s: %s", row->Bad.ID, row->Bad.Use.Text());
    if (used == 0) return;
    if (used > kMostUsesNamed) list += Format("\rand %d more", used - kMostUsesNamed);
    // The first button is the default one.
    const TModalResult answer = context.Dialogs().MessageDlg(
        Format(used == 1 ? "The project uses this ID, or may use it:%s\rDelete it all the same?"
                         : "The project uses these IDs, or may use them:%s\rDelete them all the same?",
               list),
        TMsgDlgType::mtWarning, {mrNo, mrYes});
    if (answer != mrYes)
        confirmed.erase(std::partition(confirmed.begin(), confirmed.end(), isUnused), confirmed.end());
}

void DeleteIDsOf(TContext& context, const TFormRow& form, const std::vector<std::string>& ids) {
    TModuleLease lease(context, form.FileName);
    const auto lang = GetmlLang(context, form);
    if (lang == nullptr) return;
    TTable strings = lang->GetTable(TStringsType::stStrings);
    // An ID that stands twice goes as often as it was confirmed.
    std::unordered_map<std::string, int> confirmed;
    for (const std::string& id : ids)
        ++confirmed[UpperCase(id)];
    std::vector<bool> gone;
    for (const TTableEntry& entry : strings.Entries()) {
        const auto id = confirmed.find(UpperCase(entry.Key));
        gone.push_back(id != confirmed.end() && id->second-- > 0);
    }
    strings.Remove(gone);
    lang->SetTable(strings);
    MarkModifiedForm(context, form.FormName);
    lease.Save();
}

}  // namespace

// --- the window

std::string TBadIDRow::Cell(std::size_t column) const {
    switch (column) {
        case bcStringID:
            return Bad.ID;
        case bcType:
            return Bad.Type();
        case bcInfo:
            return Bad.Info();
        case bcUse:
            return Bad.Kind == TBadIDKind::Unused ? Bad.Use.Text() : std::string();
        case bcFileName:
            return Bad.FileName;
        default:
            return {};
    }
}

TfrmBadIDs::TfrmBadIDs(TContext& context) : context_(context) {
    Name = "frmBadIDs";
    Caption = "Bad string IDs";
    ActiveControl = "lvIDs";
    ClientWidth = 700;
    ClientHeight = 260;
    lblTop =
        "TmlLang Expert has detected the following ID(s) as a problematic. Right-click on the item to delete "
        "or locate the selected ID.";
    lvIDs.Columns = kBadIDColumns;
    Actions.All = BindActions<TfrmBadIDs>(*this, kBadIDsActions);
    Actions.Popup = {"ViewSource", "", "Delete"};
}

bool TfrmBadIDs::HasDesignWidths() const {
    return std::ranges::equal(lvIDs.Columns, kBadIDColumns, {}, &TListColumn::Width, &TListColumn::Width);
}

void TfrmBadIDs::FormShow() {
    ReadPlacement(*context_.Host.Registry, kIDFormKey, Placement);
}

void TfrmBadIDs::FormClose() {
    WritePlacement(*context_.Host.Registry, kIDFormKey, Placement);
}

void TfrmBadIDs::Add(std::vector<TBadID> found) {
    for (TBadID& bad : found)
        lvIDs.Add(std::move(bad));
    UpdateStatus();
}

void TfrmBadIDs::Remove(const std::vector<int>& rows) {
    std::vector<TBadID> kept;
    std::size_t next = 0;
    for (const auto& row : lvIDs.Items()) {
        if (std::find(rows.begin(), rows.end(), row->Id()) == rows.end())
            kept.push_back(row->Bad);
        else
            next = kept.size();
    }
    lvIDs.Clear();
    Add(std::move(kept));
    if (lvIDs.Count() == 0) return;
    lvIDs.Row(std::min(static_cast<int>(next), lvIDs.Count() - 1)).Selected = true;
    Changed();
}

void TfrmBadIDs::UpdateStatus() {
    StatusPanels[1] = std::to_string(lvIDs.Count());
    Changed();
}

bool TfrmBadIDs::CanDelete() const {
    const TBadIDRow* row = lvIDs.FirstSelected();
    return row != nullptr && row->Bad.Kind == TBadIDKind::Unused;
}

void TfrmBadIDs::LVIDsDblClick() {
    if (const TBadIDRow* row = lvIDs.FirstSelected()) ViewBadID(context_, row->Bad);
}

void TfrmBadIDs::LVIDsKeyDown(TShortCut key) {
    if (key == kEnterKey) LVIDsDblClick();
}

void TfrmBadIDs::Delete1Click() {
    DeleteStringByID(context_, *this);
}

// --- the commands

void CheckunusedIDs1Click(TContext& context, TIDsMemory& memory) {
    const std::vector<const TFormRow*> rows = SelectedForms(context);
    if (rows.empty()) return;
    TfrmBadIDs& window = NewWindow(context, memory);
    TCheckSeries series(context, rows.size());
    for (const TFormRow* row : rows) {
        if (row->HasComponent())
            series.Check(row->FormName, row->FileName);
        else if (rows.size() == 1)
            return Tell(context, Format("Form %s is not translated!", row->FormName), TMsgDlgType::mtError);
    }
    if (series.HasFound()) return ShowFound(context, window, series);
    const std::string which =
        rows.size() == 1 ? Format("form %s", rows.front()->FormName) : std::string("selected forms");
    Tell(context, Format("All IDs on %s are used.\rAll internal and external IDs resolved.", which),
         TMsgDlgType::mtInformation);
}

void CheckbadstringIDsinunit1Click(TContext& context, TIDsMemory& memory) {
    TfrmTranslUnits chooser(context);
    chooser.Caption = "Check bad string IDs in unit(s)";
    chooser.lblUnits = "&Select Unit(s):";
    chooser.OptionsVisible = false;
    if (context.Dialogs().ShowModal(chooser) != mrOk) return;
    TfrmBadIDs& window = NewWindow(context, memory);
    const TStringList units = chooser.lbUnits.SelectedItems();
    TCheckSeries series(context, units.Items().size());
    for (const std::string& unit : units)
        if (!SameText(ExtensionOf(unit), ".DPR")) series.Check({}, unit);
    if (series.HasFound()) return ShowFound(context, window, series);
    Tell(context, "All external IDs in unit(s) resolved.", TMsgDlgType::mtInformation);
}

void ViewBadID(TContext& context, const TBadID& bad) {
    if (bad.Kind == TBadIDKind::Unused) return EditStringID(context, bad.FileName, bad.ID, bad.Place);
    if (!OpenFile(context, bad.FileName, true)) return;
    const auto editor = GetModuleFromFileName(context, bad.FileName)->GetSourceEditor(0);
    editor->GetEditView(0)->SetCursorPos({bad.Place, 0});
    editor->Show();
}

void DeleteStringByID(TContext& context, TfrmBadIDs& window) {
    std::vector<const TBadIDRow*> confirmed = ConfirmedRows(context, window);
    KeepUsed(context, confirmed);
    if (confirmed.empty()) return;
    std::vector<TBadID> unused;
    std::vector<int> rows;
    for (const TBadIDRow* row : confirmed) {
        unused.push_back(row->Bad);
        rows.push_back(row->Id());
    }
    DeleteIDs(context, unused);
    window.Remove(rows);
    if (window.lvIDs.Count() == 0) window.Close(mrClose);
}

void DeleteIDs(TContext& context, const std::vector<TBadID>& unused) {
    std::map<std::string, std::vector<std::string>> idsByFile;
    for (const TBadID& bad : unused)
        idsByFile[bad.FileName].push_back(bad.ID);
    const auto scope = BeginCommand(context, "Delete strings");
    for (const auto& [file, ids] : idsByFile)
        DeleteIDsOf(context, *context.Rows.FormNames.FindFile(file), ids);
    scope->Commit();
}

}  // namespace tml
