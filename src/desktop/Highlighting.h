#pragma once

#include <string>

class QsciScintilla;

namespace tml {

/// The looks that all source texts share: font, line numbers, line ends, colours of the palette, and no undo
/// of the editor's own.
void SetUpEditor(QsciScintilla& editor);
/// Colours the language of the file's extension; called again when the palette changes.
void SetUpLanguage(QsciScintilla& editor, const std::string& fileName);

}  // namespace tml
