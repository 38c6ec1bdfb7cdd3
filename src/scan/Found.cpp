#include "scan/Found.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "scan/Foundactions.h"
#include "scan/Lines.h"
#include "scan/Skippedstrings.h"
#include "source/Literals.h"
#include "tables/Textmethods.h"

namespace tml {
namespace {

const std::string kFoundKey = "\\Software\\Velmora\\TmlLang\\FoundStrings";
constexpr const char* kBoxCaption = "TmlLang Expert";
constexpr std::string_view kCast = "PChar(";

enum TColumn { fnLine, fnID, fnText, fnReplacement };

// The filter leaves the calls out: the name of their method would match every row.
const std::vector<TGridColumn> kFoundColumns{
    {.Caption = "Line #", .Width = 60, .IsNumber = true, .IsNumbered = true},
    {.Caption = "String ID:", .Width = 100},
    {.Caption = "String constant:", .Width = 250, .MarksBlanks = true},
    {.Caption = "Will be replaced by:", .Width = 290, .IsSearched = false},
};

std::string CastToPChar(std::string text) {
    if (text.starts_with(kCast)) return text;
    const bool endsStatement = text.ends_with(';');
    if (endsStatement) text.pop_back();
    return std::string(kCast).append(text).append(endsStatement ? ");" : ")");
}

/// A pattern that matches the text, in any case, and nothing else.
std::string PatternOf(const std::string& text) {
    std::string pattern = "(?i)";
    for (const char c : text) {
        const bool isSign = static_cast<unsigned char>(c) < 0x80 && std::isalnum(c) == 0 && c != ' ';
        if (isSign) pattern += '\\';
        pattern += c;
    }
    return pattern;
}

}  // namespace

// --- the window

TfrmFound::TfrmFound(TContext& context, TScanMemory& memory, TFoundInput input)
    : Rows(std::move(input.Found)), context_(context), memory_(memory), input_(std::move(input)) {
    Name = "frmFound";
    Caption = Format("Found String Constants (%s)", FileNameOf(input_.FileName));
    if (IsInSeries()) Caption += Format(" - %d of %d", input_.Place.Number, input_.Place.Count);
    ActiveControl = "sgStrings";
    if (!input_.CallOf)
        input_.CallOf = [](const TmlFoundSourceString& row, const TCallStyle& style) {
            return ReplacementText(style, row.StrID, row.StrContent);
        };
    Actions = ActionsOf(*this);
    SetUpGrids();
}

void TfrmFound::SetUpGrids() {
    for (TGrid* grid : {&sgStrings, &sgDeleted}) {
        grid->Columns = kFoundColumns;
        grid->Cell = [this](int row, int column) { return CellOf(row, column); };
        grid->Look = [this](int row) { return LookOf(row); };
    }
    sgStrings.EditColumn = fnID;
    sgStrings.OnTyping = [this](int row, const std::string& id) { CheckEditText(row, id); };
    sgStrings.OnEdit = [this](int row, const std::string& id) { SetEditText(row, id); };
    Done();
    for (TGrid* grid : {&sgStrings, &sgDeleted})
        grid->OnChange = [this] { Update(); };
}

std::string TfrmFound::CellOf(int row, int column) const {
    const TmlFoundSourceString& record = Rows[row].Record;
    switch (column) {
        case fnLine:
            return std::to_string(record.Line + 1);
        case fnID:
            return record.StrID;
        case fnText:
            return record.StrContent;
        default:
            return WrittenText(record);
    }
}

TGridLook TfrmFound::LookOf(int row) const {
    const TFoundRow& shown = Rows[row];
    const TAdvice advice = shown.Record.Advice;
    TGridLook look;
    if (shown.Record.MarkedToIgnore)
        look.Picture = "ignore";
    else if (advice != TAdvice::None)
        look.Picture = "advice";
    look.Hint = AdviceText(advice);
    look.Grey = shown.LeftOut;
    if (shown.Record.MarkedToIgnore || shown.LeftOut) look.StruckColumn = fnReplacement;
    return look;
}

const TFoundRow* TfrmFound::Current() const {
    const int row = Shown().Current();
    return row < 0 ? nullptr : &Rows[row];
}

TFoundPreview TfrmFound::Preview() const {
    const TFoundRow* row = Current();
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

std::string TfrmFound::Advice() const {
    const TFoundRow* row = Current();
    return row == nullptr ? std::string() : std::string(AdviceText(row->Record.Advice));
}

void TfrmFound::FormShow() {
    const auto stored = context_.Host.Registry->OpenForReading();
    const TStringList widths =
        TStringList::FromCommaText(stored->ReadString(kFoundKey, "GridCols").value_or(""));
    for (std::size_t i = 0; i < std::min(sgStrings.Columns.size(), widths.Items().size()); ++i) {
        try {
            sgStrings.Columns[i].Width = ToInteger(widths.Items()[i]);
        } catch (const EConvertError&) {
            // The column keeps the width of its design.
        }
    }
    NoticeVisible = stored->ReadBool(kFoundKey, "NoticeVisible").value_or(NoticeVisible);
    PreviewHeight = stored->ReadInteger(kFoundKey, "PreviewHeight").value_or(PreviewHeight);
    Changed();
}

bool TfrmFound::FormCloseQuery() {
    if (ModalResult == mrOk || (sgStrings.Rows().empty() && !CanUndo())) return true;
    if (ModalResult == mrIgnore)
        return Confirm(
            Format("This will leave \"%s\" as it is and go on! Continue?", FileNameOf(input_.FileName)));
    const int behind = input_.Place.Count - input_.Place.Number;
    std::string question = "This will close the Found Strings form! Continue?";
    if (behind > 0) question += Format("\r\nUnits of the series that stay as they are, too: %d", behind);
    return Confirm(question);
}

/// Every write reaches the disk, and a run over many units closes many reviews: only what is new is
/// written.
void TfrmFound::FormClose() {
    TStringList widths;
    for (const TGridColumn& column : sgStrings.Columns)
        widths.Add(std::to_string(column.Width));
    IRegistry& registry = *context_.Host.Registry;
    const auto stored = registry.OpenForReading();
    if (stored->ReadString(kFoundKey, "GridCols") != widths.CommaText())
        registry.WriteString(kFoundKey, "GridCols", widths.CommaText());
    if (stored->ReadBool(kFoundKey, "NoticeVisible") != NoticeVisible)
        registry.WriteBool(kFoundKey, "NoticeVisible", NoticeVisible);
    if (PreviewHeight > 0 && stored->ReadInteger(kFoundKey, "PreviewHeight") != PreviewHeight)
        registry.WriteInteger(kFoundKey, "PreviewHeight", PreviewHeight);
}

bool TfrmFound::Confirm(const std::string& question) {
    return context_.Dialogs().MessageDlg(question, TMsgDlgType::mtConfirmation, {mrYes, mrNo}) == mrYes;
}

void TfrmFound::Done() {
    Rows.EndStep();
    if (const auto found = Rows.At(TFoundPlace::Found); found != sgStrings.Rows()) sgStrings.Assign(found);
    if (const auto deleted = Rows.At(TFoundPlace::Deleted); deleted != sgDeleted.Rows())
        sgDeleted.Assign(deleted);
    if (ShowsChange) Change = input_.DiffOf(Kept());
    Update();
}

void TfrmFound::Update() {
    StatusPanels = {Format("Found strings: %d", sgStrings.Rows().size()),
                    Format("Deleted strings: %d", sgDeleted.Rows().size()),
                    Format("Selected rows: %d", Shown().SelectedCount())};
    TakenPanel = Format("To be replaced: %d, left out: %d", Rows.CountReplaced(), Rows.CountLeftOut());
    if (Rows.CountMarked() > 0) TakenPanel += Format(", marked to ignore: %d", Rows.CountMarked());
    TableCaption = ShowsDeleted ? "Deleted strings, which stay as they are:" : "Found strings:";
    IDNotice.clear();
    for (TAction& action : Actions.All) {
        if (action.Name == "acShowChange") action.Caption = ShowsChange ? "C&urrent row" : "&Whole change";
        if (action.Name != "acSwitchDeleted") continue;
        action.Caption = ShowsDeleted ? "Found" : "Deleted";
        action.Hint = ShowsDeleted ? "Shows found rows" : "Shows deleted rows";
    }
    Changed();
}

int TfrmFound::PreviewRows() const {
    return 2 * std::max(context_.Settings.Get().PreviewLines, 0) + 1;
}

void TfrmFound::SetFilter(const std::string& text) {
    sgStrings.SetFilter(text);
    sgDeleted.SetFilter(text);
}

void TfrmFound::HideNotice() {
    NoticeVisible = false;
    Changed();
}

// --- selection

std::vector<int> TfrmFound::AffectedFound() const {
    return ShowsDeleted ? std::vector<int>() : sgStrings.Affected();
}

bool TfrmFound::HasAffected(bool marked) const {
    const std::vector<int> rows = AffectedFound();
    return std::any_of(rows.begin(), rows.end(),
                       [&](int row) { return Rows[row].Record.MarkedToIgnore == marked; });
}

bool TfrmFound::HasAdvice() const {
    const std::vector<int>& rows = Shown().Shown();
    return std::any_of(rows.begin(), rows.end(),
                       [&](int row) { return Rows[row].Record.Advice != TAdvice::None; });
}

bool TfrmFound::HasAdvisedTaken() const {
    return std::any_of(Rows.begin(), Rows.end(), [](const TFoundRow& row) {
        return row.IsTaken() && row.Record.Advice != TAdvice::None;
    });
}

void TfrmFound::acSelectRow() {
    const std::vector<int> row{Shown().Current()};
    if (Shown().IsSelected(row.front()))
        Shown().Select({}, row);
    else
        Shown().Select(row);
}

void TfrmFound::acInvertSelection() {
    Shown().SelectOnly([this](int row) { return !Shown().IsSelected(row); });
}

void TfrmFound::acRemoveSelection() {
    Shown().SelectOnly([](int) { return false; });
}

void TfrmFound::acSelectAdvised() {
    Shown().SelectOnly([this](int row) { return Rows[row].Record.Advice != TAdvice::None; });
}

// --- string IDs

void TfrmFound::SetEditText(int row, const std::string& id) {
    SetID(row, id);
    Done();
}

void TfrmFound::CheckEditText(int row, const std::string& id) {
    const std::string upper = UpperCase(id);
    const std::string& text = Rows[row].Record.StrContent;
    const int known = input_.Existing.Find(id);
    bool isTaken = known >= 0 && input_.Existing.Entries()[static_cast<std::size_t>(known)].Base() != text;
    for (const TFoundRow& other : Rows)
        isTaken = isTaken || (other.IsReplaced() && other.Record.StrContent != text &&
                              UpperCase(other.Record.StrID) == upper);
    IDNotice.clear();
    if (id.empty()) IDNotice = Format("The string \"%s\" has no ID!", text);
    if (isTaken) IDNotice = Format("The string ID \"%s\" is used for different texts!", id);
    Changed();
}

/// The ID is the first literal of the replacement; everything around it stays.
void TfrmFound::SetID(int row, const std::string& id) {
    if (Rows[row].Record.StrID == id) return;
    TmlFoundSourceString& record = Rows.Change(row).Record;
    const TLanguage& language = *input_.Style.Language;
    const std::size_t begin = record.Replacement.find(language.Delimiter());
    if (begin != std::string::npos)
        record.Replacement.replace(begin + 1, EncodeLiteralBody(record.StrID, language).size(),
                                   EncodeLiteralBody(id, language));
    record.StrID = id;
}

void TfrmFound::acStartID() {
    if (!HasFoundRow()) return;
    const std::string& prefix = input_.IDPrefix;
    std::string start = Current()->Record.StrID;
    if (SameText(start.substr(0, prefix.size()), prefix)) start.erase(0, prefix.size());
    if (!context_.Dialogs().InputQuery(kBoxCaption, "Input start ID (" + prefix + "):", start)) return;
    std::int64_t number = 0;
    try {
        number = ToInteger(start);
    } catch (const EConvertError&) {
        context_.Dialogs().MessageDlg("For automatic generation start ID shall be integer!",
                                      TMsgDlgType::mtError, {mrOk});
        return;
    }
    for (const int row : sgStrings.FromCurrentOn())
        SetID(row, prefix + std::to_string(number++));
    Done();
}

// --- deleting, restoring, excluding

void TfrmFound::Move(const std::vector<int>& rows, TFoundPlace place) {
    for (const int row : rows)
        Rows.Change(row).Place = place;
    Done();
}

void TfrmFound::acDeleteRow() {
    const std::vector<int> rows = AffectedFound();
    if (rows.empty()) return;
    const bool several = rows.size() > 1;
    if (Confirm(several ? "Delete selected rows?"
                        : "Delete selected row (" + Rows[rows.front()].Record.StrID + ")?"))
        Move(rows, TFoundPlace::Deleted);
}

void TfrmFound::acRestoreDeletedRow() {
    if (ShowsDeleted) Move(sgDeleted.Affected(), TFoundPlace::Found);
}

void TfrmFound::acDeleteRowsContains() {
    if (ShowsDeleted) return;
    std::string& part = memory_.ExcludeRowsTypedStr;
    std::string answer = part;
    if (!context_.Dialogs().InputQuery(
            kBoxCaption, "Type string which is included in rows which should be deleted:", answer))
        return;
    part = answer;
    std::vector<int> rows = sgStrings.Rows();
    std::erase_if(rows, [&](int row) { return !Contains(Rows[row].Record.StrContent, part); });
    Move(rows, TFoundPlace::Deleted);
}

void TfrmFound::acExclude() {
    TStringList phrases;
    std::set<std::string> known;
    std::vector<int> rows = AffectedFound();
    std::sort(rows.begin(), rows.end());
    for (const int row : rows)
        if (known.insert(UpperCase(Rows[row].Record.StrContent)).second)
            phrases.Add(Rows[row].Record.StrContent);
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

TStringList TfrmFound::AddToSkipWords(const TStringList& phrases) {
    const TSettingValues& settings = context_.Settings.Get();
    ICommonLibraryLoader* loader = context_.Host.CommonLibrary;
    const ICommonLibrary* common = loader != nullptr ? loader->Load() : nullptr;
    // Without a matcher phrases are compared as they stand, whatever the settings say.
    const bool arePatterns = settings.UseRegExpForSkip && common != nullptr && common->HasMatcher();
    TStringList words = settings.SkipWords;
    TStringList added;
    std::set<std::string> known;
    for (const std::string& word : words)
        known.insert(UpperCase(word));
    for (const std::string& phrase : phrases) {
        // In the list each line is a phrase.
        if (phrase.find_first_of("\r\n") != std::string::npos) continue;
        const std::string word = arePatterns ? PatternOf(phrase) : phrase;
        if (!known.insert(UpperCase(word)).second) continue;
        words.Add(word);
        added.Add(word);
    }
    context_.Settings.SetSkipWords(words);
    return added;
}

void TfrmFound::ExcludePhrases(const TStringList& phrases) {
    std::set<std::string> excluded;
    bool keepsAll = true;
    for (const std::string& phrase : phrases) {
        excluded.insert(UpperCase(phrase));
        keepsAll = keepsAll && phrase.find_first_of("\r\n") == std::string::npos;
    }
    Rows.AddWords(AddToSkipWords(phrases));
    // Hidden and deleted ones too: what is no longer found shall neither be written nor restored.
    std::vector<int> rows;
    for (int row = 0; row < Rows.Count(); ++row)
        if (excluded.contains(UpperCase(Rows[row].Record.StrContent))) rows.push_back(row);
    Move(rows, TFoundPlace::Excluded);
    if (!keepsAll)
        context_.Dialogs().MessageDlg(
            "A phrase of more than one line cannot be kept in the \"Skip Words\" option. Its rows are "
            "removed, but the next scan will find it again.",
            TMsgDlgType::mtInformation, {mrOk});
}

void TfrmFound::acSwitchDeleted() {
    ShowsDeleted = !ShowsDeleted;
    Update();
}

void TfrmFound::acViewSkipped() {
    ViewSkipped(context_, memory_);
}

void TfrmFound::acShowChange() {
    ShowsChange = !ShowsChange;
    Done();
}

// --- undo

void TfrmFound::acUndo() {
    TStringList words = context_.Settings.Get().SkipWords;
    for (const std::string& word : Rows.Undo())
        if (const int index = words.IndexOf(word); index >= 0) words.Delete(index);
    if (words != context_.Settings.Get().SkipWords) context_.Settings.SetSkipWords(words);
    Done();
}

void TfrmFound::acRedo() {
    TStringList words = context_.Settings.Get().SkipWords;
    for (const std::string& word : Rows.Redo())
        if (words.IndexOf(word) < 0) words.Add(word);
    if (words != context_.Settings.Get().SkipWords) context_.Settings.SetSkipWords(words);
    Done();
}

// --- what is written

void TfrmFound::LeaveOut(const std::vector<int>& rows, bool leftOut) {
    for (const int row : rows)
        Rows.Change(row).LeaveOut(leftOut);
    Done();
}

void TfrmFound::acTakeRow() {
    const std::vector<int> rows = AffectedFound();
    LeaveOut(rows, std::all_of(rows.begin(), rows.end(), [&](int row) { return !Rows[row].LeftOut; }));
}

void TfrmFound::acTakeAll() {
    LeaveOut(sgStrings.Rows(), false);
}

void TfrmFound::acLeaveAdvised() {
    std::vector<int> rows = sgStrings.Rows();
    std::erase_if(rows, [&](int row) { return Rows[row].Record.Advice == TAdvice::None; });
    LeaveOut(rows, true);
}

/// A mark is written into the source, so that a row which gets it is taken.
void TfrmFound::MarkRows(bool mark) {
    for (const int row : AffectedFound()) {
        TFoundRow& changed = Rows.Change(row);
        changed.Record.MarkedToIgnore = mark;
        changed.LeaveOut(!mark && changed.LeftOut);
    }
    Done();
}

/// A row that was left out because a character pointer is wanted is taken with what gives one.
void TfrmFound::SetReplacement(int row, const std::string& replacement, bool givesPointer) {
    TFoundRow& changed = Rows.Change(row);
    changed.Record.Replacement = replacement;
    if (givesPointer && changed.Record.Advice == TAdvice::CharacterPointer) changed.LeaveOut(false);
}

void TfrmFound::acTypecastPChar() {
    for (const int row : AffectedFound())
        SetReplacement(row, CastToPChar(Rows[row].Record.Replacement), true);
    Done();
}

void TfrmFound::UseMethod(const std::string& method) {
    TCallStyle style = input_.Style;
    style.ReplaceMethod = method;
    for (const int row : AffectedFound())
        SetReplacement(row, input_.CallOf(Rows[row].Record, style), GivesCharacterPointer(method));
    Done();
}

// --- the way out

std::string TfrmFound::FindConflict() const {
    std::map<std::string, std::set<std::string>> known;  // upper-cased IDs to their texts
    for (const TTableEntry& string : input_.Existing.Entries())
        known[UpperCase(string.Key)].insert(string.Base());
    for (const TFoundRow& row : Rows) {
        if (!row.IsReplaced()) continue;
        if (row.Record.StrID.empty()) return Format("The string \"%s\" has no ID!", row.Record.StrContent);
        auto& texts = known[UpperCase(row.Record.StrID)];
        if (!texts.empty() && !texts.contains(row.Record.StrContent))
            return Format("The string ID \"%s\" is used for different texts!", row.Record.StrID);
        texts.insert(row.Record.StrContent);
    }
    return {};
}

std::string TfrmFound::Question() const {
    std::string question = "This will apply changes and modify source code. Continue?";
    if (Rows.CountLeftOut() > 0)
        question += Format("\r\n%d strings will be replaced, %d are left out.", Rows.CountReplaced(),
                           Rows.CountLeftOut());
    if (Rows.CountMarked() > 0)
        question += Format("\r\n%d will be marked to be ignored.", Rows.CountMarked());
    const auto hidden =
        static_cast<int>(std::count_if(sgStrings.Rows().begin(), sgStrings.Rows().end(), [&](int row) {
            return Rows[row].IsReplaced() && sgStrings.PlaceOf(row) < 0;
        }));
    if (hidden > 0) question += Format("\r\nThe filter hides %d of those that will be replaced.", hidden);
    return question;
}

void TfrmFound::tbModifyClick() {
    if (const std::string conflict = FindConflict(); !conflict.empty()) {
        context_.Dialogs().MessageDlg(conflict, TMsgDlgType::mtError, {mrOk});
        return;
    }
    if (sgStrings.SelectedCount() > 0 && !Confirm("There are some row(s) selected. Continue?")) return;
    if (!Confirm(Question())) return;
    Close(mrOk);
}

void TfrmFound::tbCancelClick() {
    Close(mrCancel);
}

void TfrmFound::acSkipUnit() {
    Close(mrIgnore);
}

}  // namespace tml
