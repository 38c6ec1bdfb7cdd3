#pragma once

#include <memory>

#include "desktop/View.h"

namespace tml {

/// The view of a window, nullptr for a class that has none. Which class is shown by which view stands in
/// one table.
std::unique_ptr<TView> MakeView(TForm& form, const TViewServices& services);

}  // namespace tml
