#include "desktop/Highlighting.h"

#include <QFontDatabase>
#include <QPalette>
#include <Qsci/qscicommandset.h>
#include <Qsci/qscilexercpp.h>
#include <Qsci/qscilexerpascal.h>
#include <Qsci/qsciscintilla.h>
#include <array>
#include <span>

#include "base/Files.h"
#include "base/Utf8.h"
#include "desktop/Theme.h"

namespace tml {
namespace {

enum class TInk { Comment, Directive, Keyword, String, Number };

/// The colour of each kind of text, on light and on dark paper.
struct TInkColours {
    TInk Ink;
    const char* Light;
    const char* Dark;
};

constexpr std::array kInks{
    TInkColours{TInk::Comment, "#3f7f5f", "#7fb38a"}, TInkColours{TInk::Directive, "#7a5c00", "#d7ba7d"},
    TInkColours{TInk::Keyword, "#1f4fa8", "#7fb0f0"}, TInkColours{TInk::String, "#a31515", "#e0977c"},
    TInkColours{TInk::Number, "#09727f", "#9bd0c0"},
};

struct TStyle {
    int Style;
    TInk Ink;
};

constexpr std::array kPascal{
    TStyle{QsciLexerPascal::Comment, TInk::Comment},
    TStyle{QsciLexerPascal::CommentParenthesis, TInk::Comment},
    TStyle{QsciLexerPascal::CommentLine, TInk::Comment},
    TStyle{QsciLexerPascal::PreProcessor, TInk::Directive},
    TStyle{QsciLexerPascal::PreProcessorParenthesis, TInk::Directive},
    TStyle{QsciLexerPascal::Keyword, TInk::Keyword},
    TStyle{QsciLexerPascal::SingleQuotedString, TInk::String},
    TStyle{QsciLexerPascal::UnclosedString, TInk::String},
    TStyle{QsciLexerPascal::Character, TInk::String},
    TStyle{QsciLexerPascal::Number, TInk::Number},
    TStyle{QsciLexerPascal::HexNumber, TInk::Number},
};

constexpr std::array kCpp{
    TStyle{QsciLexerCPP::Comment, TInk::Comment},
    TStyle{QsciLexerCPP::CommentLine, TInk::Comment},
    TStyle{QsciLexerCPP::CommentDoc, TInk::Comment},
    TStyle{QsciLexerCPP::CommentLineDoc, TInk::Comment},
    TStyle{QsciLexerCPP::PreProcessor, TInk::Directive},
    TStyle{QsciLexerCPP::Keyword, TInk::Keyword},
    TStyle{QsciLexerCPP::DoubleQuotedString, TInk::String},
    TStyle{QsciLexerCPP::SingleQuotedString, TInk::String},
    TStyle{QsciLexerCPP::RawString, TInk::String},
    TStyle{QsciLexerCPP::UnclosedString, TInk::String},
    TStyle{QsciLexerCPP::Number, TInk::Number},
};

constexpr int kLastStyle = 127;

QFont SourceFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSize(std::max(font.pointSize(), 9));
    return font;
}

void SetInks(QsciLexer& lexer, const QPalette& palette, std::span<const TStyle> styles) {
    lexer.setFont(SourceFont());
    for (int style = 0; style <= kLastStyle; ++style) {
        lexer.setColor(palette.color(QPalette::Text), style);
        lexer.setPaper(palette.color(QPalette::Base), style);
        lexer.setEolFill(false, style);
    }
    for (const TStyle& style : styles)
        for (const TInkColours& ink : kInks)
            if (ink.Ink == style.Ink)
                lexer.setColor(QColor(IsDark(palette) ? ink.Dark : ink.Light), style.Style);
}

/// The window's actions own these keys; the editor would take them first. It keeps Ctrl+A, which the window
/// leaves to whatever has the focus.
void GiveUpLetterKeys(QsciScintilla& editor) {
    for (QsciCommand* command : editor.standardCommands()->commands()) {
        const int key = command->key() & ~static_cast<int>(Qt::KeyboardModifierMask);
        const bool isLetter = key > Qt::Key_A && key <= Qt::Key_Z;
        if (isLetter && (command->key() & static_cast<int>(Qt::CTRL)) != 0) command->setKey(0);
    }
}

}  // namespace

void SetUpEditor(QsciScintilla& editor) {
    editor.setUtf8(true);
    editor.setEolMode(QsciScintilla::EolWindows);
    editor.setFrameShape(QFrame::NoFrame);
    editor.setMarginType(0, QsciScintilla::NumberMargin);
    editor.setMarginWidth(0, "00000");
    editor.setMarginWidth(1, 0);
    editor.setIndentationsUseTabs(false);
    editor.setTabWidth(2);
    editor.setAutoIndent(true);
    editor.setCaretLineVisible(true);
    editor.setScrollWidth(1);
    editor.setScrollWidthTracking(true);
    editor.SendScintilla(QsciScintilla::SCI_SETUNDOCOLLECTION, 0UL);
    GiveUpLetterKeys(editor);
}

void SetUpLanguage(QsciScintilla& editor, const std::string& fileName) {
    const QPalette palette = editor.palette();
    const std::string extension = LowerCase(ExtensionOf(fileName));
    const bool isCpp = extension == ".cpp" || extension == ".h" || extension == ".c" || extension == ".hpp";
    QsciLexer* old = editor.lexer();
    QsciLexer* lexer = nullptr;
    if (isCpp) {
        lexer = new QsciLexerCPP(&editor);
        SetInks(*lexer, palette, kCpp);
    } else {
        lexer = new QsciLexerPascal(&editor);
        SetInks(*lexer, palette, kPascal);
    }
    editor.setLexer(lexer);
    delete old;
    editor.setFont(SourceFont());
    editor.setCaretForegroundColor(palette.color(QPalette::Text));
    editor.setCaretLineBackgroundColor(palette.color(QPalette::AlternateBase));
    editor.setSelectionBackgroundColor(palette.color(QPalette::Highlight));
    editor.setSelectionForegroundColor(palette.color(QPalette::HighlightedText));
    editor.setMarginsFont(SourceFont());
    editor.setMarginsBackgroundColor(palette.color(QPalette::Window));
    editor.setMarginsForegroundColor(palette.color(QPalette::Disabled, QPalette::WindowText));
}

}  // namespace tml
