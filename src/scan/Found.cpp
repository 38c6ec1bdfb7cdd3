#include "scan/Found.h"

#include <algorithm>
#include <map>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "scan/Lines.h"
#include "scan/Skippedstrings.h"
#include "source/Sourcetext.h"

namespace tml {
namespace {

constexpr const char* kCaption = "TmlLang Expert";
constexpr std::string_view kCast = "PChar(";
const std::string kKey = "\\Software\\Velmora\\TmlLang\\FoundStrings";

const std::array<std::string, 4> kHeaders{"Line #", "String ID:", "String constant:", "Will be replaced by:"};

constexpr std::array kActions{
    TFoundAction{"acDeleteRow", "Delete", "Ctrl+Del", &TfrmFound::acDeleteRow},
    TFoundAction{"acStartID", "Start ID...", "", &TfrmFound::acStartID},
    TFoundAction{"acExclude", "Exclude", "Ctrl+E", &TfrmFound::acExclude},
    TFoundAction{"acMarktoIgnore", "&Mark to Ignore", "Ctrl+Shift+M", &TfrmFound::acMarktoIgnore},
    TFoundAction{"acRemoveIgnoreMark", "&Remove Ignore Mark", "Ctrl+Shift+R", &TfrmFound::acRemoveIgnoreMark},
    TFoundAction{"acSwitchDeleted", "Deleted", "", &TfrmFound::acSwitchDeleted},
    TFoundAction{"acRestoreDeletedRow", "Restore", "", &TfrmFound::acRestoreDeletedRow},
    TFoundAction{"acViewSkipped", "Excluded", "", &TfrmFound::acViewSkipped},
    TFoundAction{"acSelectRow", "&Select row", "Ctrl+M", &TfrmFound::acSelectRow},
    TFoundAction{"acInvertSelection", "&Invert selection", "Ctrl+I", &TfrmFound::acInvertSelection},
    TFoundAction{"acRemoveSelection", "Re&move selection", "", &TfrmFound::acRemoveSelection},
    TFoundAction{"acSelectAdvised", "Select rows with an &advice", "", &TfrmFound::acSelectAdvised},
    TFoundAction{"acDeleteRowsContains", "Delete &rows that contains...", "",
                 &TfrmFound::acDeleteRowsContains},
    TFoundAction{"acTypecastPChar", "&Typecast to PChar...", "", &TfrmFound::acTypecastPChar},
};

void CastToPChar(TmlFoundSourceString& record) {
    std::string& text = record.Replacement;
    if (text.starts_with(kCast)) return;
    const bool endsStatement = text.ends_with(';');
    if (endsStatement) text.pop_back();
    text = std::string(kCast).append(text).append(endsStatement ? ");" : ")");
}

}  // namespace

// --- the grids

TFoundRow* TFoundGrid::Current() {
    const bool exists = Row >= 0 && Row < static_cast<int>(Rows.size());
    return exists ? &Rows[static_cast<std::size_t>(Row)] : nullptr;
}

int TFoundGrid::SelectedCount() const {
    return static_cast<int>(
        std::count_if(Rows.begin(), Rows.end(), [](const TFoundRow& row) { return row.Selected; }));
}

std::string TFoundGrid::Cell(const TFoundRow& row, int column) {
    switch (column) {
        case 0:
            return std::to_string(row.Record.Line + 1);
        case 1:
            return row.Record.StrID;
        case 2:
            return row.Record.StrContent;
        default:
            return WrittenText(row.Record);
    }
}

std::vector<TFoundRow*> TfrmFound::Affected(TFoundGrid& grid) {
    std::vector<TFoundRow*> rows;
    if (&grid != &Shown()) return rows;
    for (TFoundRow& row : grid.Rows)
        if (row.Selected) rows.push_back(&row);
    if (rows.empty() && grid.Current() != nullptr) rows.push_back(grid.Current());
    return rows;
}

template <typename Fits>
void TfrmFound::Move(TFoundGrid& from, TFoundGrid& to, Fits fits) {
    const auto moved = std::stable_partition(from.Rows.begin(), from.Rows.end(),
                                             [&](const TFoundRow& row) { return !fits(row); });
    changed_ = changed_ || moved != from.Rows.end();
    for (auto row = moved; row != from.Rows.end(); ++row) {
        row->Selected = false;
        to.Rows.push_back(std::move(*row));
    }
    from.Rows.erase(moved, from.Rows.end());
    from.Row = std::max(0, std::min(from.Row, static_cast<int>(from.Rows.size()) - 1));
    std::stable_sort(to.Rows.begin(), to.Rows.end(), [](const TFoundRow& a, const TFoundRow& b) {
        return a.Record.Position < b.Record.Position;
    });
}

// --- the window

TfrmFound::TfrmFound(TContext& context, TFoundInput input) : context_(context), input_(std::move(input)) {
    Name = "frmFound";
    Caption = Format("Found String Constants (%s)", FileNameOf(input_.FileName));
    if (!input_.CallOf)
        input_.CallOf = [](const TmlFoundSourceString& row, const TCallStyle& style) {
            return ReplacementText(style, row.StrID, row.StrContent);
        };
    for (const TmlFoundSourceString& found : input_.Found)
        sgStrings.Rows.push_back({found});
    Update();
}

const std::array<std::string, 4>& TfrmFound::Headers() {
    return kHeaders;
}

std::span<const TFoundAction> TfrmFound::Actions() {
    return kActions;
}

std::string TfrmFound::CaptionOf(const TFoundAction& action) const {
    const bool switchesBack = ShowsDeleted && action.Execute == &TfrmFound::acSwitchDeleted;
    return switchesBack ? "Found" : std::string(action.Caption);
}

std::string TfrmFound::HintOf(const TFoundAction& action) const {
    if (action.Execute == &TfrmFound::acViewSkipped) return "Shows the strings that were skipped, and why";
    if (action.Execute != &TfrmFound::acSwitchDeleted) return {};
    return ShowsDeleted ? "Shows found rows" : "Shows deleted rows";
}

TFoundPreview TfrmFound::Preview() {
    const TFoundRow* row = Shown().Current();
    if (row == nullptr) return {};
    TSourcePreview lines = GetCurrentSourcePreview(*input_.Source, row->Record.Line + 1, 0,
                                                   context_.Settings.Get().PreviewLines);
    // The lines are a piece of the source, Index lines in front of the literal's and as many behind it.
    std::size_t begin = 0;
    for (int line = row->Record.Line - lines.Index; line > 0; --line)
        begin = input_.Source->find('\n', begin) + 1;
    const auto literal = static_cast<std::size_t>(row->Record.Position) - 1;
    const std::size_t end =
        std::min(literal - begin + static_cast<std::size_t>(row->Record.SpanLength), lines.Text.size());
    return {std::move(lines.Text), literal - begin, end};
}

std::string TfrmFound::Advice() {
    const TFoundRow* row = Shown().Current();
    return row == nullptr ? std::string() : std::string(AdviceText(row->Record.Advice));
}

TmlFoundSourceStrings TfrmFound::Kept() const {
    TmlFoundSourceStrings kept;
    for (const TFoundRow& row : sgStrings.Rows)
        kept.AddItem() = row.Record;
    kept.Sort();
    return kept;
}

void TfrmFound::FormShow() {
    IRegistry& registry = *context_.Host.Registry;
    const TStringList widths = TStringList::FromCommaText(registry.ReadString(kKey, "GridCols").value_or(""));
    for (std::size_t i = 0; i < std::min(GridCols.size(), widths.Items().size()); ++i) {
        try {
            GridCols[i] = ToInteger(widths.Items()[i]);
        } catch (const EConvertError&) {
            // The column keeps the width of its design.
        }
    }
    NoticeVisible = registry.ReadBool(kKey, "NoticeVisible").value_or(NoticeVisible);
    PreviewHeight = registry.ReadInteger(kKey, "PreviewHeight").value_or(PreviewHeight);
    Changed();
}

bool TfrmFound::FormCloseQuery() {
    if (ModalResult == mrOk || (sgStrings.Rows.empty() && !changed_)) return true;
    return Confirm("This will close the Found Strings form! Continue?");
}

/// Every write reaches the disk, and a run over many units closes many reviews: only what is new is
/// written.
void TfrmFound::FormClose() {
    TStringList widths;
    for (const int width : GridCols)
        widths.Add(std::to_string(width));
    IRegistry& registry = *context_.Host.Registry;
    if (registry.ReadString(kKey, "GridCols") != widths.CommaText())
        registry.WriteString(kKey, "GridCols", widths.CommaText());
    if (registry.ReadBool(kKey, "NoticeVisible") != NoticeVisible)
        registry.WriteBool(kKey, "NoticeVisible", NoticeVisible);
    if (registry.ReadInteger(kKey, "PreviewHeight") != PreviewHeight)
        registry.WriteInteger(kKey, "PreviewHeight", PreviewHeight);
}

bool TfrmFound::Confirm(const std::string& question) {
    return context_.Dialogs().MessageDlg(question, TMsgDlgType::mtConfirmation, {mrYes, mrNo}) == mrYes;
}

void TfrmFound::Update() {
    StatusPanels = {Format("Found strings: %d", sgStrings.Rows.size()),
                    Format("Deleted strings: %d", sgDeleted.Rows.size()),
                    Format("Selected rows: %d", Shown().SelectedCount())};
    Changed();
}

void TfrmFound::SelectCell(int row) {
    Shown().Row = row;
    Changed();
}

void TfrmFound::SelectRows(const std::vector<int>& rows, bool selected) {
    for (const int row : rows)
        Shown().Rows.at(static_cast<std::size_t>(row)).Selected = selected;
    Update();
}

void TfrmFound::HideNotice() {
    NoticeVisible = false;
    Changed();
}

// --- string IDs

void TfrmFound::SetEditText(int row, const std::string& id) {
    SetID(sgStrings.Rows.at(static_cast<std::size_t>(row)).Record, id);
    Update();
}

/// The ID is the first literal of the replacement; everything around it stays.
void TfrmFound::SetID(TmlFoundSourceString& record, const std::string& id) {
    const TLanguage& language = *input_.Style.Language;
    const std::size_t begin = record.Replacement.find(language.Delimiter());
    if (begin != std::string::npos)
        record.Replacement.replace(begin + 1, EncodeLiteralBody(record.StrID, language).size(),
                                   EncodeLiteralBody(id, language));
    record.StrID = id;
    changed_ = true;
}

void TfrmFound::acStartID() {
    const TFoundRow* current = sgStrings.Current();
    if (ShowsDeleted || current == nullptr) return;
    const std::string& prefix = context_.Settings.Get().HCPrefix;
    std::string start = current->Record.StrID;
    if (start.starts_with(prefix)) start.erase(0, prefix.size());
    if (!context_.Dialogs().InputQuery(kCaption, "Input start ID (" + prefix + "):", start)) return;
    std::int64_t number = 0;
    try {
        number = ToInteger(start);
    } catch (const EConvertError&) {
        context_.Dialogs().MessageDlg("For automatic generation start ID shall be integer!",
                                      TMsgDlgType::mtError, {mrOk});
        return;
    }
    for (auto row = static_cast<std::size_t>(sgStrings.Row); row < sgStrings.Rows.size(); ++row)
        SetID(sgStrings.Rows[row].Record, prefix + std::to_string(number++));
    Update();
}

std::string TfrmFound::FindConflict() const {
    std::map<std::string, std::set<std::string>> known;  // upper-cased IDs to their texts
    for (const TExistingString& string : input_.Existing)
        known[UpperCase(string.ID)].insert(string.Text);
    for (const TFoundRow& row : sgStrings.Rows) {
        if (row.Record.MarkedToIgnore) continue;
        if (row.Record.StrID.empty()) return Format("The string \"%s\" has no ID!", row.Record.StrContent);
        auto& texts = known[UpperCase(row.Record.StrID)];
        if (!texts.empty() && !texts.contains(row.Record.StrContent))
            return Format("The string ID \"%s\" is used for different texts!", row.Record.StrID);
        texts.insert(row.Record.StrContent);
    }
    return {};
}

// --- deleting, restoring, excluding

void TfrmFound::acDeleteRow() {
    if (ShowsDeleted) return;
    const bool several = sgStrings.SelectedCount() > 0;
    TFoundRow* current = sgStrings.Current();
    if (!several && current == nullptr) return;
    if (!Confirm(several ? "Delete selected rows?" : "Delete selected row (" + current->Record.StrID + ")?"))
        return;
    if (!several) current->Selected = true;
    Move(sgStrings, sgDeleted, [](const TFoundRow& row) { return row.Selected; });
    Update();
}

void TfrmFound::acRestoreDeletedRow() {
    for (TFoundRow* row : Affected(sgDeleted))
        row->Selected = true;
    Move(sgDeleted, sgStrings, [](const TFoundRow& row) { return row.Selected; });
    Update();
}

void TfrmFound::acDeleteRowsContains() {
    if (ShowsDeleted) return;
    std::string& part = context_.ExcludeRowsTypedStr;
    std::string answer = part;
    if (!context_.Dialogs().InputQuery(
            kCaption, "Type string which is included in rows which should be deleted:", answer))
        return;
    part = answer;
    Move(sgStrings, sgDeleted, [&](const TFoundRow& row) { return Contains(row.Record.StrContent, part); });
    Update();
}

void TfrmFound::acExclude() {
    TStringList phrases;
    for (const TFoundRow* row : Affected(sgStrings))
        if (phrases.IndexOf(row->Record.StrContent) < 0) phrases.Add(row->Record.StrContent);
    if (phrases.Empty()) return;
    std::string lines = phrases.Text();
    lines.erase(lines.size() - 2);
    const bool agreed =
        phrases.Count() == 1
            ? Confirm(Format("Exclude all \"%s\" and add it to Skip Words for future skipping?", phrases[0]))
            : Confirm(Format("This will exclude phrases:\r\n%s\r\nand add them to \"Skip Words\" option for "
                             "future skipping! Continue?",
                             lines));
    if (agreed) ExcludePhrases(phrases);
}

void TfrmFound::ExcludePhrases(const TStringList& phrases) {
    TStringList words = context_.Settings.Get().SkipWords;
    std::set<std::string> excluded;
    for (const std::string& phrase : phrases) {
        excluded.insert(UpperCase(phrase));
        if (words.IndexOf(phrase) < 0) words.Add(phrase);
    }
    context_.Settings.SetSkipWords(words);
    std::erase_if(sgStrings.Rows,
                  [&](const TFoundRow& row) { return excluded.contains(UpperCase(row.Record.StrContent)); });
    sgStrings.Row = 0;
    changed_ = true;
    Update();
}

void TfrmFound::acSwitchDeleted() {
    ShowsDeleted = !ShowsDeleted;
    Update();
}

void TfrmFound::acViewSkipped() {
    ViewSkipped(context_);
}

// --- selection

void TfrmFound::acSelectRow() {
    if (TFoundRow* row = Shown().Current()) row->Selected = !row->Selected;
    Update();
}

void TfrmFound::acInvertSelection() {
    for (TFoundRow& row : Shown().Rows)
        row.Selected = !row.Selected;
    Update();
}

void TfrmFound::acRemoveSelection() {
    for (TFoundRow& row : Shown().Rows)
        row.Selected = false;
    Update();
}

void TfrmFound::acSelectAdvised() {
    for (TFoundRow& row : Shown().Rows)
        row.Selected = row.Record.Advice != TAdvice::None;
    Update();
}

// --- what is written

void TfrmFound::MarkRows(bool mark) {
    for (TFoundRow* row : Affected(sgStrings))
        row->Record.MarkedToIgnore = mark;
    changed_ = true;
    Update();
}

void TfrmFound::acTypecastPChar() {
    for (TFoundRow* row : Affected(sgStrings))
        CastToPChar(row->Record);
    changed_ = true;
    Update();
}

void TfrmFound::UseMethod(const std::string& method) {
    TCallStyle style = input_.Style;
    style.ReplaceMethod = method;
    for (TFoundRow* row : Affected(sgStrings))
        row->Record.Replacement = input_.CallOf(row->Record, style);
    changed_ = true;
    Update();
}

void TfrmFound::tbModifyClick() {
    if (const std::string conflict = FindConflict(); !conflict.empty()) {
        context_.Dialogs().MessageDlg(conflict, TMsgDlgType::mtError, {mrOk});
        return;
    }
    if (sgStrings.SelectedCount() > 0 && !Confirm("There are some row(s) selected. Continue?")) return;
    if (!Confirm("This will apply changes and modify source code. Continue?")) return;
    ModalResult = mrOk;
    Changed();
}

void TfrmFound::tbCancelClick() {
    ModalResult = mrCancel;
    Changed();
}

}  // namespace tml
