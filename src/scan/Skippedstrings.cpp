#include "scan/Skippedstrings.h"

#include <algorithm>
#include <array>
#include <functional>
#include <numeric>

#include "base/Errors.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "core/Modules.h"
#include "scan/Lines.h"
#include "scan/Scaninput.h"

namespace tml {
namespace {

const std::string kKey = "\\Software\\Velmora\\TmlLang\\SkippedStrings";

/// The control of the options window that decides a reason; the other reasons come from the source itself.
struct TDecidingOption {
    TStringSkipReason Reason;
    const char* Control;
};
constexpr std::array kDecidingOptions{
    TDecidingOption{ssrBadChars, "edExcludeChars"},
    TDecidingOption{ssrByLine, "memSkipLines"},
    TDecidingOption{ssrByPhrase, "memSkipWords"},
    TDecidingOption{ssrByPhrasesRE, "memSkipWords"},
};

const TDecidingOption* OptionOf(TStringSkipReason reason) {
    const auto* option = std::find_if(kDecidingOptions.begin(), kDecidingOptions.end(),
                                      [&](const TDecidingOption& each) { return each.Reason == reason; });
    return option == kDecidingOptions.end() ? nullptr : option;
}

/// The 1-based line of an entry; a scan of a const section has recorded it.
int LineOf(const TmlSkippedString& skipped, IOTAEditView& view) {
    return skipped.ConstLine >= 1 ? skipped.ConstLine : view.PosToCharPos(skipped.Position - 1).Line;
}

TSkipSettings SkipSettingsOf(TContext& context) {
    return ScanInputOf(context.Settings.Get(), nullptr).Skip;
}

}  // namespace

TfrmSkippedStrings::TfrmSkippedStrings(TContext& context, const TScanMemory& memory)
    : context_(context), memory_(memory) {
    Name = "frmSkippedStrings";
    Caption = "Strings Skipped by Expert";
    ActiveControl = "lvStrings";
    lvStrings.Columns = {{"Line #", 60}, {"Content", 480}};
    Table.Columns = {{.Caption = "Line #", .Width = 60, .IsNumber = true},
                     {.Caption = "Content", .Width = 480, .MarksBlanks = true}};
    Table.Cell = [this](int row, int column) {
        const TListItem& item = *lvStrings.Items()[static_cast<std::size_t>(row)];
        return column == 0 ? item.Caption : item.SubItems[0];
    };
    Table.OnChange = [this] { ShowCurrent(); };
}

void TfrmSkippedStrings::FormShow() {
    ReadPlacement(*context_.Host.Registry, kKey, Placement);
    Table.Assign({});
    lvStrings.Clear();
    if (const auto editor = GetCurrentSourceEditor(context_)) Fill(*editor);
    StatusPanel = std::to_string(lvStrings.Count());
    std::vector<int> rows(lvStrings.Items().size());
    std::iota(rows.begin(), rows.end(), 0);
    Table.Assign(std::move(rows));
    lvStringsSelectItem(0);
}

void TfrmSkippedStrings::Fill(IOTASourceEditor& editor) {
    const auto view = editor.GetEditView(0);
    for (const TmlSkippedString& skipped : memory_.Skipped) {
        TListItem& item = lvStrings.Add();
        item.Caption = std::to_string(LineOf(skipped, *view));
        item.SubItems = {skipped.Text, std::to_string(skipped.Position)};
        item.Data = std::make_shared<TStringSkipReason>(skipped.Reason);
    }
}

void TfrmSkippedStrings::FormClose() {
    WritePlacement(*context_.Host.Registry, kKey, Placement);
}

TStringSkipReason TfrmSkippedStrings::ReasonOf(int row) const {
    return *std::static_pointer_cast<TStringSkipReason>(
        lvStrings.Items().at(static_cast<std::size_t>(row))->Data);
}

void TfrmSkippedStrings::ShowCurrent() {
    const int row = Table.Current();
    lblReason = row < 0 ? std::string() : std::string(SkipReasonText(ReasonOf(row)));
    memPreview.clear();
    SelBegin = SelEnd = 0;
    const auto editor = GetCurrentSourceEditor(context_);
    if (row >= 0 && editor != nullptr) Preview(*editor);
    Changed();
}

void TfrmSkippedStrings::Preview(IOTASourceEditor& editor) {
    TSourcePreview preview =
        GetCurrentSourcePreview(*editor.GetText(), LineOfRow(), 0, context_.Settings.Get().PreviewLines);
    memPreview = std::move(preview.Text);
    for (int i = 0; i < preview.Index; ++i)
        SelBegin = memPreview.find('\n', SelBegin) + 1;
    SelEnd = std::min(memPreview.find('\n', SelBegin), memPreview.size() - 1) + 1;
}

int TfrmSkippedStrings::LineOfRow() const {
    return ToInteger(lvStrings.Items().at(static_cast<std::size_t>(Table.Current()))->Caption);
}

void TfrmSkippedStrings::btCloseClick() {
    Close(mrClose);
}

// --- the way out

std::string TfrmSkippedStrings::WayOutCaption() const {
    if (Table.Current() < 0) return {};
    return OptionOf(ReasonOf(Table.Current())) != nullptr ? "&Open the option..." : "Sh&ow in source";
}

std::string TfrmSkippedStrings::WayOutHint() const {
    if (Table.Current() < 0) return {};
    return OptionOf(ReasonOf(Table.Current())) != nullptr ? "Opens the options where this is decided"
                                                          : "Goes to the line in the code editor";
}

void TfrmSkippedStrings::btWayOutClick() {
    if (Table.Current() < 0) return;
    if (OptionOf(ReasonOf(Table.Current())) != nullptr)
        OpenOption();
    else
        ShowInSource();
    Changed();
}

void TfrmSkippedStrings::OpenOption() {
    const TSkipSettings before = SkipSettingsOf(context_);
    context_.OpenOptionsAt(OptionOf(ReasonOf(Table.Current()))->Control);
    const auto editor = GetCurrentSourceEditor(context_);
    if (editor == nullptr || SkipSettingsOf(context_) == before) return;
    lblNote = Format(
        "The options have changed. This list is that of the last scan; a new scan would no longer "
        "skip %d of its %d strings.",
        CountTakenUp(*editor), lvStrings.Count());
}

void TfrmSkippedStrings::ShowInSource() {
    const auto editor = GetCurrentSourceEditor(context_);
    if (editor == nullptr) return;
    editor->GetEditView(0)->SetCursorPos({LineOfRow(), 0});
    editor->Show();
    lblNote = Format("The code editor stands on line %d.", LineOfRow());
}

int TfrmSkippedStrings::CountTakenUp(IOTASourceEditor& editor) const {
    ICommonLibraryLoader* loader = context_.Host.CommonLibrary;
    ICommonLibrary* common = loader == nullptr ? nullptr : loader->Load();
    if (common != nullptr && common->HasClassifier()) common->InitInternalPasSource(*editor.GetText());
    const TSkipSettings settings = SkipSettingsOf(context_);
    const TSkipRules rules(settings, LanguageOf(editor.GetFileName()), common);
    const auto skips = [&](const TmlSkippedString& skipped) {
        if (OptionOf(skipped.Reason) == nullptr) return true;
        if (skipped.Reason == ssrByLine) return rules.RefusalOf(skipped.Text) != ssrNone;
        // A const section has recorded no offset: what is in a comment there is not told apart.
        return rules.IsExcludeString(skipped.Text, std::max(skipped.Position - 1, 0), -1) != ssrNone;
    };
    return static_cast<int>(
        std::count_if(memory_.Skipped.begin(), memory_.Skipped.end(), std::not_fn(skips)));
}

void ViewSkipped(TContext& context, const TScanMemory& memory) {
    TfrmSkippedStrings window(context, memory);
    context.Dialogs().ShowModal(window);
}

void SkippedStrings(TContext& context, TScanMemory& memory) {
    if (memory.ScannedUnit.empty())
        throw EBadInput("", 0, "no unit has been scanned yet", "Scan one by \"Source\" first");
    if (!OpenFile(context, memory.ScannedUnit, true)) throw EmlLangSilent();
    ViewSkipped(context, memory);
}

}  // namespace tml
