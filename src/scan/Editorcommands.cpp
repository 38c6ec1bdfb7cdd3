#include "scan/Editorcommands.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/Errors.h"
#include "base/Files.h"
#include "base/Format.h"
#include "base/Utf8.h"
#include "core/Insertion.h"
#include "core/Modules.h"
#include "scan/Calls.h"
#include "scan/Scanreplace.h"
#include "scan/Skiprules.h"
#include "source/Language.h"

namespace tml {
namespace {

constexpr std::array kEditorCommands{
    TEditorCommand{"TranslateSourceMenu", "T&ranslate selected source", TranslateSourceMenuClick},
    TEditorCommand{"MarkUnTranslatableSourceMenu", "Mark as &untranslatable",
                   MarkUnTranslatableSourceMenuClick},
};

/// The block of the current editor.
struct TCurrentBlock : TEditorBlock {
    std::shared_ptr<IOTASourceEditor> Editor;
};

std::optional<TCurrentBlock> CurrentBlock(TContext& context) {
    auto editor = GetCurrentSourceEditor(context);
    const auto block = editor == nullptr ? std::nullopt : BlockOf(*editor);
    if (!block) return std::nullopt;
    return TCurrentBlock{*block, std::move(editor)};
}

/// Restores the mode however the command ends.
class TSelectionMode {
  public:
    explicit TSelectionMode(TScanMemory& memory) : memory_(memory) { memory_.ScanMode = kScanSelection; }
    ~TSelectionMode() { memory_.ScanMode = 0; }
    TSelectionMode(const TSelectionMode&) = delete;
    TSelectionMode& operator=(const TSelectionMode&) = delete;

  private:
    TScanMemory& memory_;
};

/// Where the first call begins that fetches a string.
std::optional<int> FirstFetch(const TSourceText& source, const TComponentReference& component,
                              const std::string& id) {
    for (const TAccessorCall& call : FindCalls(source, component))
        if (SameText(CalledID(source, call), id)) return static_cast<int>(call.Begin);
    return std::nullopt;
}

}  // namespace

std::optional<TEditorBlock> BlockOf(IOTASourceEditor& editor) {
    if (editor.GetEditViewCount() == 0 || editor.GetBlockType() == TOTABlockType::btColumn)
        return std::nullopt;
    const auto view = editor.GetEditView(0);
    return TEditorBlock{view->CharPosToPos(editor.GetBlockStart()),
                        view->CharPosToPos(editor.GetBlockAfter())};
}

std::span<const TEditorCommand> AllEditorCommands() {
    return kEditorCommands;
}

std::string GetSelectedSourceText(TContext& context) {
    const auto block = CurrentBlock(context);
    if (!block || block->End <= block->Begin) return {};
    return block->Editor->CreateReader()->GetText(block->Begin, block->End - block->Begin);
}

void ReplaceSelectedSourceText(TContext& context, const std::string& text) {
    const auto block = CurrentBlock(context);
    if (!block) return;
    const auto writer = block->Editor->CreateUndoableWriter();
    writer->CopyTo(block->Begin);
    writer->DeleteTo(block->End);
    writer->Insert(text);
}

void TranslateSourceMenuClick(TContext& context, TScanMemory& memory) {
    const auto editor = GetCurrentSourceEditor(context);
    if (editor == nullptr) return;
    const std::string fileName = editor->GetFileName();
    context.ShowExpert();
    if (context.Project.ProjectFiles.IndexOf(fileName) < 0) {
        context.Dialogs().MessageDlg(Format("Current project doesn't include %s file!", fileName),
                                     TMsgDlgType::mtError, {mrOk});
        return;
    }
    const TSelectionMode mode(memory);
    // The forms decide, whichever page is in front.
    if (TFormRow* row = context.Rows.FormNames.FirstSelected())
        DoScanReplace(context, memory, *row);
    else
        SourceWithoutForm(context, memory);
}

void MarkSourceSelectionToSkip(TContext& context) {
    const auto editor = GetCurrentSourceEditor(context);
    if (editor == nullptr) return;
    // Where the block begins and ends counts for nothing here: there is always a line break.
    const TIgnoreTags tags(LanguageOf(editor->GetFileName()), false, false);
    ReplaceSelectedSourceText(context, tags.Before + GetSelectedSourceText(context) + tags.Behind);
}

void MarkUnTranslatableSourceMenuClick(TContext& context, TScanMemory& /*memory*/) {
    if (GetCurrentSourceEditor(context) == nullptr) return;
    if (GetSelectedSourceText(context).empty()) {
        context.Dialogs().MessageDlg("There are no lines selected in the source editor!",
                                     TMsgDlgType::mtInformation, {mrOk});
        return;
    }
    MarkSourceSelectionToSkip(context);
}

void MarkStringToSkip(TContext& context, const TmlFoundSourceString& found) {
    const auto editor = GetCurrentSourceEditor(context);
    if (editor == nullptr || editor->GetEditViewCount() == 0) return;
    const auto view = editor->GetEditView(0);
    // The text of joined literals is shorter than what they take in the source.
    const int end =
        std::max(found.Position + static_cast<int>(found.StrContent.size()) + 1, found.SpanEnd - 1);
    editor->SetBlock({view->PosToCharPos(found.Position - 1).Line, 0}, {view->PosToCharPos(end).Line + 1, 0},
                     TOTABlockType::btNonInclusive);
    MarkSourceSelectionToSkip(context);
}

void ShowStringInSource(TContext& context, const std::string& formName, const std::string& id) {
    const TFormRow* row = context.Rows.FormNames.FindForm(formName);
    const bool isOpen = row != nullptr && OpenFile(context, row->FileName, false);
    const auto lang = isOpen ? GetmlLang(context, formName) : nullptr;
    if (lang == nullptr) throw EmlLangSilent();
    const auto editor = GetModuleFromFileName(context, row->FileName)->GetSourceEditor(0);
    TComponentReference component;
    component.FormName = formName;
    component.ComponentName = lang->GetName();
    const auto place = FirstFetch(*editor->GetSource(), component, id);
    if (!place) {
        context.Dialogs().MessageDlg(Format("No call in %s fetches \"%s\"!", FileNameOf(row->FileName), id),
                                     TMsgDlgType::mtInformation, {mrOk});
        throw EmlLangSilent();
    }
    OpenFile(context, row->FileName, true);
    const auto view = editor->GetEditView(0);
    view->SetCursorPos(view->PosToCharPos(*place));
}

}  // namespace tml
