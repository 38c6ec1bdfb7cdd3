#include "scan/Skippedstrings.h"

#include <algorithm>

#include "base/Utf8.h"
#include "expert/Modules.h"
#include "scan/Lines.h"

namespace tml {
namespace {

const std::string kKey = "\\Software\\Velmora\\TmlLang\\SkippedStrings";

/// The 1-based line of an entry; a scan of a const section has recorded it.
int LineOf(const TmlSkippedString& skipped, IOTAEditView& view) {
    return skipped.ConstLine >= 1 ? skipped.ConstLine : view.PosToCharPos(skipped.Position - 1).Line;
}

}  // namespace

TfrmSkippedStrings::TfrmSkippedStrings(TContext& context) : context_(context) {
    Name = "frmSkippedStrings";
    Caption = "Strings Skipped by Expert";
    lvStrings.Columns = {{"Line #", 60}, {"Content", 480}};
}

void TfrmSkippedStrings::FormShow() {
    ReadPlacement(*context_.Host.Registry, kKey, Placement);
    lvStrings.Clear();
    if (const auto editor = GetCurrentSourceEditor(context_)) Fill(*editor);
    StatusPanel = std::to_string(lvStrings.Count());
    Changed();
}

void TfrmSkippedStrings::Fill(IOTASourceEditor& editor) {
    const auto view = editor.GetEditView(0);
    for (const TmlSkippedString& skipped : context_.Skipped) {
        TListItem& item = lvStrings.Add();
        item.Caption = std::to_string(LineOf(skipped, *view));
        item.SubItems = {skipped.Text, std::to_string(skipped.Position)};
        item.Data = std::make_shared<TStringSkipReason>(skipped.Reason);
    }
}

void TfrmSkippedStrings::FormClose() {
    WritePlacement(*context_.Host.Registry, kKey, Placement);
}

void TfrmSkippedStrings::lvStringsSelectItem(int row) {
    const TListItem& item = *lvStrings.Items().at(static_cast<std::size_t>(row));
    lblReason = SkipReasonText(*std::static_pointer_cast<TStringSkipReason>(item.Data));
    memPreview.clear();
    SelBegin = SelEnd = 0;
    if (const auto editor = GetCurrentSourceEditor(context_)) {
        TSourcePreview preview = GetCurrentSourcePreview(*editor->GetText(), ToInteger(item.Caption), 0,
                                                         context_.Settings.Get().PreviewLines);
        memPreview = std::move(preview.Text);
        for (int i = 0; i < preview.Index; ++i)
            SelBegin = memPreview.find('\n', SelBegin) + 1;
        SelEnd = std::min(memPreview.find('\n', SelBegin), memPreview.size() - 1) + 1;
    }
    Changed();
}

void TfrmSkippedStrings::btCloseClick() {
    ModalResult = mrClose;
    Changed();
}

void ViewSkipped(TContext& context) {
    TfrmSkippedStrings window(context);
    context.Dialogs().ShowModal(window);
}

}  // namespace tml
