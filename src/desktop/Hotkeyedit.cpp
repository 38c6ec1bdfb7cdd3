#include "desktop/Hotkeyedit.h"

#include <QKeyEvent>

#include "desktop/Texts.h"

namespace tml {
namespace {

constexpr Qt::KeyboardModifiers kCommandKeys = Qt::ControlModifier | Qt::AltModifier;

bool IsWindowKey(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return true;
        case Qt::Key_Escape:
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_F1:
            return event.modifiers() == Qt::NoModifier;
        default:
            return false;
    }
}

bool Clears(const QKeyEvent& event) {
    return event.modifiers() == Qt::NoModifier &&
           (event.key() == Qt::Key_Delete || event.key() == Qt::Key_Backspace);
}

bool Types(const QKeyEvent& event) {
    return (event.modifiers() & kCommandKeys) == 0 && !event.text().isEmpty() && event.text()[0].isPrint();
}

}  // namespace

THotKeyEdit::THotKeyEdit(QWidget* parent) : QKeySequenceEdit(parent) {
    setClearButtonEnabled(true);
}

TShortCut THotKeyEdit::ShortCut() const {
    return ShortCutOf(keySequence());
}

bool THotKeyEdit::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && IsWindowKey(static_cast<QKeyEvent&>(*event))) {
        event->ignore();
        return false;
    }
    return QKeySequenceEdit::event(event);
}

void THotKeyEdit::keyPressEvent(QKeyEvent* event) {
    if (IsWindowKey(*event)) return event->ignore();
    if (Clears(*event)) return clear();
    const QKeySequence keys((event->modifiers() & ~Qt::KeypadModifier) | Qt::Key(event->key()));
    if (!Types(*event) && ShortCutOf(keys) != 0) setKeySequence(keys);
}

void THotKeyEdit::keyReleaseEvent(QKeyEvent*) {
    // The base class would wait for more keys: here a sequence is one key, taken when it is pressed.
}

}  // namespace tml
