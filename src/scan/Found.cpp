#include "scan/Found.h"

#include <algorithm>
#include <map>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "scan/Lines.h"

namespace tml {
namespace {

const std::string kKey = "\\Software\\Velmora\\TmlLang\\FoundStrings";

const std::array<std::string, 4> kHeaders{"Line #", "String ID:", "String constant:", "Will be replaced by:"};

constexpr std::array kActions{
    TFoundAction{"acDeleteRow", "Delete", "Ctrl+Del", &TfrmFound::acDeleteRow, TFoundNeed::FoundRow},
    TFoundAction{"acStartID", "Start ID...", "", &TfrmFound::acStartID, TFoundNeed::FoundRow},
    TFoundAction{"acExclude", "Exclude", "Ctrl+E", &TfrmFound::acExclude, TFoundNeed::FoundRow},
    TFoundAction{"acMarktoIgnore", "&Mark to Ignore", "Ctrl+Shift+M", &TfrmFound::acMarktoIgnore,
                 TFoundNeed::UnmarkedRow},
    TFoundAction{"acRemoveIgnoreMark", "&Remove Ignore Mark", "Ctrl+Shift+R", &TfrmFound::acRemoveIgnoreMark,
                 TFoundNeed::MarkedRow},
    TFoundAction{"acSwitchDeleted", "Deleted", "", &TfrmFound::acSwitchDeleted, TFoundNeed::Nothing,
                 "Shows deleted rows"},
    TFoundAction{"acRestoreDeletedRow", "Restore", "", &TfrmFound::acRestoreDeletedRow,
                 TFoundNeed::DeletedRow},
    TFoundAction{"acViewSkipped", "Excluded", "", &TfrmFound::acViewSkipped, TFoundNeed::Nothing,
                 "Shows the strings that were skipped, and why"},
    TFoundAction{"acSelectRow", "&Select row", "Ctrl+M", &TfrmFound::acSelectRow, TFoundNeed::Row},
    TFoundAction{"acInvertSelection", "&Invert selection", "Ctrl+I", &TfrmFound::acInvertSelection,
                 TFoundNeed::Row},
    TFoundAction{"acRemoveSelection", "Re&move selection", "", &TfrmFound::acRemoveSelection,
                 TFoundNeed::Selection},
    TFoundAction{"acSelectAdvised", "Select rows with an &advice", "", &TfrmFound::acSelectAdvised,
                 TFoundNeed::Advice},
    TFoundAction{"acDeleteRowsContains", "Delete &rows that contains...", "",
                 &TfrmFound::acDeleteRowsContains, TFoundNeed::FoundRow},
    TFoundAction{"acTypecastPChar", "&Typecast to PChar...", "", &TfrmFound::acTypecastPChar,
                 TFoundNeed::FoundRow},
};

constexpr std::array kToolButtons{
    TFoundAction{"ModifySource", "Modify Source", "Ctrl+Enter", &TfrmFound::tbModifyClick,
                 TFoundNeed::Nothing, "Applies changes and modifies source unit"},
    TFoundAction{"Cancel", "Cancel", "", &TfrmFound::tbCancelClick, TFoundNeed::Nothing,
                 "Cancels source translation"},
    TFoundAction{"Help", "Help", "F1", nullptr, TFoundNeed::Nothing, "Displays help topic"},
};

constexpr TFoundAction kMethodMenu{"UseMethod", "Use method:", "", nullptr, TFoundNeed::FoundRow};

bool HasShownAdvice(const TFoundRow& row) {
    return row.Shown && row.Record.Advice != TAdvice::None;
}

}  // namespace

// --- the window

TfrmFound::TfrmFound(TContext& context, TScanMemory& memory, TFoundInput input)
    : context_(context), memory_(memory), input_(std::move(input)) {
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

std::span<const TFoundAction> TfrmFound::ToolButtons() {
    return kToolButtons;
}

const TFoundAction& TfrmFound::MethodMenu() {
    return kMethodMenu;
}

std::string TfrmFound::CaptionOf(const TFoundAction& action) const {
    const bool switchesBack = ShowsDeleted && action.Execute == &TfrmFound::acSwitchDeleted;
    return switchesBack ? "Found" : std::string(action.Caption);
}

std::string TfrmFound::HintOf(const TFoundAction& action) const {
    const bool switchesBack = ShowsDeleted && action.Execute == &TfrmFound::acSwitchDeleted;
    return switchesBack ? "Shows found rows" : std::string(action.Hint);
}

bool TfrmFound::EnabledOf(const TFoundAction& action) {
    const auto anyMarked = [this](bool marked) {
        const std::vector<TFoundRow*> rows = Affected(sgStrings);
        return std::any_of(rows.begin(), rows.end(),
                           [marked](const TFoundRow* row) { return row->Record.MarkedToIgnore == marked; });
    };
    const std::vector<TFoundRow>& rows = Shown().Rows;
    const bool hasRow = Shown().Current() != nullptr;
    switch (action.Need) {
        case TFoundNeed::Nothing:
            return true;
        case TFoundNeed::Row:
            return hasRow;
        case TFoundNeed::FoundRow:
            return hasRow && !ShowsDeleted;
        case TFoundNeed::DeletedRow:
            return hasRow && ShowsDeleted;
        case TFoundNeed::MarkedRow:
            return anyMarked(true);
        case TFoundNeed::UnmarkedRow:
            return anyMarked(false);
        case TFoundNeed::Selection:
            return Shown().SelectedCount() > 0;
        case TFoundNeed::Advice:
            return std::any_of(rows.begin(), rows.end(), HasShownAdvice);
    }
    return false;
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
    // The span may begin or end outside of them.
    const auto inLines = [&](std::int32_t place) {
        const auto offset = static_cast<std::size_t>(std::max(place, 1) - 1);
        return std::clamp(offset, begin, begin + lines.Text.size()) - begin;
    };
    const std::size_t from = inLines(row->Record.SpanBegin);
    const std::size_t to = inLines(row->Record.SpanEnd);
    return {std::move(lines.Text), from, to};
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
    const auto stored = context_.Host.Registry->OpenForReading();
    const TStringList widths = TStringList::FromCommaText(stored->ReadString(kKey, "GridCols").value_or(""));
    for (std::size_t i = 0; i < std::min(GridCols.size(), widths.Items().size()); ++i) {
        try {
            GridCols[i] = ToInteger(widths.Items()[i]);
        } catch (const EConvertError&) {
            // The column keeps the width of its design.
        }
    }
    NoticeVisible = stored->ReadBool(kKey, "NoticeVisible").value_or(NoticeVisible);
    PreviewHeight = stored->ReadInteger(kKey, "PreviewHeight").value_or(PreviewHeight);
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
    const auto stored = registry.OpenForReading();
    if (stored->ReadString(kKey, "GridCols") != widths.CommaText())
        registry.WriteString(kKey, "GridCols", widths.CommaText());
    if (stored->ReadBool(kKey, "NoticeVisible") != NoticeVisible)
        registry.WriteBool(kKey, "NoticeVisible", NoticeVisible);
    if (stored->ReadInteger(kKey, "PreviewHeight") != PreviewHeight)
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
    for (const int index : rows) {
        TFoundRow& row = Shown().Rows.at(static_cast<std::size_t>(index));
        row.Selected = selected && row.Shown;
    }
    Update();
}

void TfrmFound::SetFilter(const std::string& text) {
    Filter = text;
    sgStrings.Filter(text);
    sgDeleted.Filter(text);
    Update();
}

void TfrmFound::HideNotice() {
    NoticeVisible = false;
    Changed();
}

// --- selection

void TfrmFound::acSelectRow() {
    if (TFoundRow* row = Shown().Current()) row->Selected = !row->Selected;
    Update();
}

void TfrmFound::acInvertSelection() {
    for (TFoundRow& row : Shown().Rows)
        row.Selected = row.Shown && !row.Selected;
    Update();
}

void TfrmFound::acRemoveSelection() {
    for (TFoundRow& row : Shown().Rows)
        row.Selected = false;
    Update();
}

void TfrmFound::acSelectAdvised() {
    for (TFoundRow& row : Shown().Rows)
        row.Selected = HasShownAdvice(row);
    Update();
}

// --- the way out

std::string TfrmFound::FindConflict() const {
    std::map<std::string, std::set<std::string>> known;  // upper-cased IDs to their texts
    for (const TTableEntry& string : input_.Existing.Entries())
        known[UpperCase(string.Key)].insert(string.Base());
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

void TfrmFound::tbModifyClick() {
    if (const std::string conflict = FindConflict(); !conflict.empty()) {
        context_.Dialogs().MessageDlg(conflict, TMsgDlgType::mtError, {mrOk});
        return;
    }
    if (sgStrings.SelectedCount() > 0 && !Confirm("There are some row(s) selected. Continue?")) return;
    if (!Confirm("This will apply changes and modify source code. Continue?")) return;
    Close(mrOk);
}

void TfrmFound::tbCancelClick() {
    Close(mrCancel);
}

}  // namespace tml
