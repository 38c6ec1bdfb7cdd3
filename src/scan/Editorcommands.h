#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/Context.h"
#include "scan/Foundstring.h"
#include "scan/Scanmemory.h"

namespace tml {

/// A command in the local menu of the code editor.
struct TEditorCommand {
    std::string_view Name;
    std::string_view Caption;
    void (*Handler)(TContext&, TScanMemory&);
};

std::span<const TEditorCommand> AllEditorCommands();

/// The block of an editor, 0-based byte offsets, End exclusive; none for a column block.
struct TEditorBlock {
    int Begin = 0;
    int End = 0;
};
std::optional<TEditorBlock> BlockOf(IOTASourceEditor& editor);

/// The text of the code editor's block; "" without an editor, without a block and for a column block.
std::string GetSelectedSourceText(TContext& context);
/// Replaces the code editor's block; nothing without an editor and for a column block.
void ReplaceSelectedSourceText(TContext& context, const std::string& text);

/// The command: brings up the expert and scans the selected text only, with the form that is selected in
/// the list, or without one. An error message for a file that the project does not have.
void TranslateSourceMenuClick(TContext& context, TScanMemory& memory);

/// Encloses the selected text between lines that later scans respect.
void MarkSourceSelectionToSkip(TContext& context);
/// The command: the same, or a message when nothing is selected.
void MarkUnTranslatableSourceMenuClick(TContext& context, TScanMemory& memory);

/// Encloses the whole lines of a found string, from its first to its last; the block is then on them.
void MarkStringToSkip(TContext& context, const TmlFoundSourceString& found);

/// Brings up the unit of a form of the list, with the cursor on the first call in it that fetches the string.
/// EmlLangSilent where there is none, after a message.
void ShowStringInSource(TContext& context, const std::string& formName, const std::string& id);

}  // namespace tml
