#pragma once

#include <QKeySequenceEdit>

#include "windows/Controls.h"

namespace tml {

/// Takes one shortcut by pressing it; Del and BkSp clear it. Keys that a window answers to (Enter, Esc, Tab,
/// Ctrl+Tab) stay the window's, keys that type a character are no shortcut alone.
class THotKeyEdit : public QKeySequenceEdit {
  public:
    explicit THotKeyEdit(QWidget* parent);

    TShortCut ShortCut() const;

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
};

}  // namespace tml
