#pragma once

#include "desktop/Gridmodel.h"
#include "desktop/Rowtable.h"
#include "desktop/Runner.h"

namespace tml {

/// Shows a grid in a table, in the widths of its design; a click on a header sorts. The view is whose fonts
/// count.
void SetUpGrid(const QWidget& view, TRowTable& table, TGridModel& model, TRunner& runner);

}  // namespace tml
