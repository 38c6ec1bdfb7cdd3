#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "scan/Found.h"
#include "scan/Skippedstrings.h"
#include "source/Literals.h"

// What the commands of the review do to its rows.

namespace tml {
namespace {

constexpr const char* kCaption = "TmlLang Expert";
constexpr std::string_view kCast = "PChar(";

std::string CastToPChar(std::string text) {
    if (text.starts_with(kCast)) return text;
    const bool endsStatement = text.ends_with(';');
    if (endsStatement) text.pop_back();
    return std::string(kCast).append(text).append(endsStatement ? ");" : ")");
}

}  // namespace

std::vector<TFoundRow*> TfrmFound::Affected(TFoundGrid& grid) {
    return &grid == &Shown() ? grid.Affected() : std::vector<TFoundRow*>();
}

void TfrmFound::Move(TFoundGrid& from, TFoundGrid& to, const std::function<bool(const TFoundRow&)>& fits) {
    std::vector<TFoundRow> rows = from.TakeOut(fits);
    changed_ = changed_ || !rows.empty();
    to.PutIn(std::move(rows));
}

// --- string IDs

void TfrmFound::SetEditText(int row, const std::string& id) {
    SetID(sgStrings.Rows.at(static_cast<std::size_t>(row)).Record, id);
    Update();
}

/// The ID is the first literal of the replacement; everything around it stays.
void TfrmFound::SetID(TmlFoundSourceString& record, const std::string& id) {
    if (record.StrID == id) return;
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
    const std::string& prefix = input_.IDPrefix;
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
        if (sgStrings.Rows[row].Shown) SetID(sgStrings.Rows[row].Record, prefix + std::to_string(number++));
    Update();
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
    std::string& part = memory_.ExcludeRowsTypedStr;
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
    std::set<std::string> known;
    for (const TFoundRow* row : Affected(sgStrings))
        if (known.insert(UpperCase(row->Record.StrContent)).second) phrases.Add(row->Record.StrContent);
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
    std::set<std::string> known;
    for (const std::string& word : words)
        known.insert(UpperCase(word));
    std::set<std::string> excluded;
    bool keepsAll = true;
    for (const std::string& phrase : phrases) {
        excluded.insert(UpperCase(phrase));
        // In the list each line is a phrase.
        const bool isLine = phrase.find_first_of("\r\n") == std::string::npos;
        keepsAll = keepsAll && isLine;
        if (isLine && known.insert(UpperCase(phrase)).second) words.Add(phrase);
    }
    context_.Settings.SetSkipWords(words);
    // Hidden ones too: what is no longer found shall not be written either.
    sgStrings.TakeOut(
        [&](const TFoundRow& row) { return excluded.contains(UpperCase(row.Record.StrContent)); });
    changed_ = true;
    Update();
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

// --- what is written

void TfrmFound::MarkRows(bool mark) {
    for (TFoundRow* row : Affected(sgStrings)) {
        changed_ = changed_ || row->Record.MarkedToIgnore != mark;
        row->Record.MarkedToIgnore = mark;
    }
    Update();
}

void TfrmFound::SetReplacement(TmlFoundSourceString& record, const std::string& text) {
    changed_ = changed_ || record.Replacement != text;
    record.Replacement = text;
}

void TfrmFound::acTypecastPChar() {
    for (TFoundRow* row : Affected(sgStrings))
        SetReplacement(row->Record, CastToPChar(row->Record.Replacement));
    Update();
}

void TfrmFound::UseMethod(const std::string& method) {
    TCallStyle style = input_.Style;
    style.ReplaceMethod = method;
    for (TFoundRow* row : Affected(sgStrings))
        SetReplacement(row->Record, input_.CallOf(row->Record, style));
    Update();
}

}  // namespace tml
