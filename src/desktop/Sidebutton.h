#pragma once

#include <QToolButton>

namespace tml {

/// A flat button at the side of a window that brings a page to the front.
class TSideButton : public QToolButton {
  public:
    explicit TSideButton(QWidget* parent) : QToolButton(parent) {
        setCheckable(true);
        setAutoExclusive(true);
        setAutoRaise(true);
        setFocusPolicy(Qt::NoFocus);
        setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        setMinimumSize(120, 30);
    }
};

}  // namespace tml
