#pragma once

#include <span>
#include <string>
#include <string_view>

#include "expert/Context.h"

namespace tml {

/// A command in the local menu of the code editor.
struct TEditorCommand {
    std::string_view Name;
    std::string_view Caption;
    void (*Handler)(TContext&);
};

std::span<const TEditorCommand> AllEditorCommands();

/// The text of the code editor's block; "" without an editor, without a block and for a column block.
std::string GetSelectedSourceText(TContext& context);
/// Replaces the code editor's block; nothing without an editor and for a column block.
void ReplaceSelectedSourceText(TContext& context, const std::string& text);

/// Encloses the selected text between lines that later scans respect.
void MarkSourceSelectionToSkip(TContext& context);
/// The command: the same, or a message when nothing is selected.
void MarkUnTranslatableSourceMenuClick(TContext& context);

/// Opens the unit of a form of the list and puts the cursor on the first call that fetches the string;
/// nothing where there is none.
void ShowStringInSource(TContext& context, const std::string& formName, const std::string& id);

}  // namespace tml
