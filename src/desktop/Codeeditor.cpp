#include "desktop/Codeeditor.h"

#include <QContextMenuEvent>
#include <algorithm>

#include "desktop/Highlighting.h"
#include "desktop/Texts.h"

namespace tml {
namespace {

/// Where two texts differ: [Begin, OldEnd) of the old one has become [Begin, NewEnd) of the new one.
struct TDifference {
    std::size_t Begin;
    std::size_t OldEnd;
    std::size_t NewEnd;
};

bool IsInside(std::string_view text, std::size_t place) {
    if (place == 0 || place >= text.size()) return false;
    const bool inSequence = (static_cast<unsigned char>(text[place]) & 0xC0) == 0x80;
    return inSequence || (text[place] == '\n' && text[place - 1] == '\r');
}

/// Never cuts a character or a line end in two.
TDifference Difference(std::string_view from, std::string_view to) {
    const std::size_t shorter = std::min(from.size(), to.size());
    std::size_t begin = 0;
    while (begin < shorter && from[begin] == to[begin])
        ++begin;
    while (IsInside(from, begin) || IsInside(to, begin))
        --begin;
    std::size_t same = 0;
    while (same < shorter - begin && from[from.size() - 1 - same] == to[to.size() - 1 - same])
        ++same;
    while (same > 0 && (IsInside(from, from.size() - same) || IsInside(to, to.size() - same)))
        --same;
    return {begin, from.size() - same, to.size() - same};
}

void ReplaceRange(QsciScintilla& editor, std::size_t begin, std::size_t end, std::string_view text) {
    editor.SendScintilla(QsciScintilla::SCI_SETTARGETRANGE, begin, static_cast<long>(end));
    editor.SendScintilla(QsciScintilla::SCI_REPLACETARGET, text.size(), text.data());
}

}  // namespace

TTextPage::TTextPage(std::string fileName) : fileName_(std::move(fileName)) {
    SetUpEditor(*this);
    SetUpLanguage(*this, fileName_);
}

void TTextPage::GoToLine(int line) {
    SendScintilla(SCI_ENSUREVISIBLEENFORCEPOLICY, static_cast<long>(line) - 1);
    setCursorPosition(line - 1, 0);
    setFocus();
}

void TTextPage::changeEvent(QEvent* event) {
    QsciScintilla::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) SetUpLanguage(*this, fileName_);
}

TCodeEditor::TCodeEditor(const std::shared_ptr<IOTAModule>& module, std::shared_ptr<IOTASourceEditor> source)
    : TTextPage(source->GetFileName()), module_(module), source_(std::move(source)) {
    setObjectName("codeEditor");
    Follow();
    connect(this, &QsciScintilla::textChanged, this, [this] {
        if (following_) return;
        typed_ = true;
        if (OnTyped) OnTyped();
    });
    connect(this, &QsciScintilla::selectionChanged, this, [this] { GiveBlock(); });
    connect(this, &QsciScintilla::cursorPositionChanged, this, [this] { GiveBlock(); });
}

bool TCodeEditor::IsModified() {
    return typed_ || source_->GetModified();
}

std::string_view TCodeEditor::Shown() const {
    const void* text = SendScintillaPtrResult(SCI_GETCHARACTERPOINTER);
    return {static_cast<const char*>(text), static_cast<std::size_t>(SendScintilla(SCI_GETLENGTH))};
}

void TCodeEditor::Commit() {
    if (!typed_) return;
    typed_ = false;
    const std::string text(Shown());
    const std::shared_ptr<const std::string> old = source_->GetText();
    const TDifference difference = Difference(*old, text);
    if (difference.OldEnd == difference.Begin && difference.NewEnd == difference.Begin) return;
    try {
        const auto writer = source_->CreateUndoableWriter();
        writer->CopyTo(static_cast<int>(difference.Begin));
        writer->DeleteTo(static_cast<int>(difference.OldEnd));
        writer->Insert(text.substr(difference.Begin, difference.NewEnd - difference.Begin));
    } catch (...) {
        taken_ = nullptr;
        Follow();
        throw;
    }
    taken_ = source_->GetText();
    if (*taken_ != text) taken_ = nullptr;
    Follow();
    GiveBlock();
}

void TCodeEditor::Follow() {
    const std::shared_ptr<const std::string> text = source_->GetText();
    following_ = true;
    if (text != taken_ && !typed_) {
        const std::string shown(Shown());
        const TDifference difference = Difference(shown, *text);
        ReplaceRange(*this, difference.Begin, difference.OldEnd,
                     std::string_view(*text).substr(difference.Begin, difference.NewEnd - difference.Begin));
        taken_ = text;
    }
    following_ = false;
    TakeBlock();
}

TOTACharPos TCodeEditor::CharPosOf(long position) const {
    const auto line = SendScintilla(SCI_LINEFROMPOSITION, position);
    const auto begin = SendScintilla(SCI_POSITIONFROMLINE, line);
    return {static_cast<int>(line) + 1, static_cast<int>(position - begin)};
}

long TCodeEditor::PositionOf(const TOTACharPos& place) const {
    const long line = std::max(place.Line - 1, 0);
    const long end = SendScintilla(SCI_GETLINEENDPOSITION, line);
    return std::min(SendScintilla(SCI_POSITIONFROMLINE, line) + place.CharIndex, end);
}

void TCodeEditor::GiveBlock() {
    if (following_) return;
    const bool isColumn = SendScintilla(SCI_SELECTIONISRECTANGLE) != 0;
    source_->SetBlock(CharPosOf(SendScintilla(SCI_GETSELECTIONSTART)),
                      CharPosOf(SendScintilla(SCI_GETSELECTIONEND)),
                      isColumn ? TOTABlockType::btColumn : TOTABlockType::btNonInclusive);
    source_->GetEditView(0)->SetCursorPos(CharPosOf(SendScintilla(SCI_GETCURRENTPOS)));
}

void TCodeEditor::TakeBlock() {
    const TOTACharPos start = source_->GetBlockStart();
    const TOTACharPos after = source_->GetBlockAfter();
    const TOTACharPos cursor = source_->GetEditView(0)->GetCursorPos();
    const bool same = start == CharPosOf(SendScintilla(SCI_GETSELECTIONSTART)) &&
                      after == CharPosOf(SendScintilla(SCI_GETSELECTIONEND)) &&
                      cursor == CharPosOf(SendScintilla(SCI_GETCURRENTPOS));
    if (same || typed_) return;
    following_ = true;
    const long begin = PositionOf(start), end = PositionOf(after), caret = PositionOf(cursor);
    const bool hasBlock = begin != end;
    SendScintilla(SCI_SETSEL, static_cast<unsigned long>(hasBlock && caret == begin ? end : begin),
                  hasBlock && caret == begin ? begin : end);
    if (!hasBlock) SendScintilla(SCI_GOTOPOS, caret);
    if (!hasFocus()) ShowCaretAbove();
    following_ = false;
    GiveBlock();
}

/// The window that sent the caret there may cover what is below.
void TCodeEditor::ShowCaretAbove() {
    const long lines = SendScintilla(SCI_LINESONSCREEN);
    const long first = SendScintilla(SCI_GETFIRSTVISIBLELINE);
    const long line = SendScintilla(SCI_LINEFROMPOSITION, SendScintilla(SCI_GETCURRENTPOS));
    if (line < first || line > first + lines / 2)
        SendScintilla(SCI_SETFIRSTVISIBLELINE, std::max(line - lines / 3, 0L));
}

void TCodeEditor::contextMenuEvent(QContextMenuEvent* event) {
    if (OnLocalMenu) OnLocalMenu(event->globalPos());
}

TFormTextView::TFormTextView(const std::string& fileName) : TTextPage(fileName) {
    setObjectName("formText");
}

void TFormTextView::SetContent(const std::string& text) {
    if (text == text_) return;
    text_ = text;
    setReadOnly(false);
    ReplaceRange(*this, 0, static_cast<std::size_t>(SendScintilla(SCI_GETLENGTH)), text);
    setReadOnly(true);
}

}  // namespace tml
