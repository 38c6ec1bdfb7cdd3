#pragma once

#include <QWidget>

#include "core/Placement.h"
#include "desktop/Places.h"
#include "desktop/Runner.h"
#include "platform/Host.h"

namespace tml {

/// What every view may use.
struct TViewServices {
    TRunner& Runner;
    const THost& Host;
    TPlaces& Places;
    std::function<void(const std::string& topic)> ShowHelp;
};

/// The widgets of one window. It shows what the window's state class holds and calls its methods.
class TView : public QWidget {
  public:
    /// Shows the state as it is now.
    virtual void Refresh() = 0;
    /// Where the window stands, for a state that keeps it itself; read from FormShow to FormClose.
    virtual TPlacement* Place() { return nullptr; }
    /// Hands over what the state keeps of the layout, before the window closes.
    virtual void BeforeClose() {}
};

}  // namespace tml
