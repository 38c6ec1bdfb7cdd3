#pragma once

#include <memory>

#include "desktop/View.h"

namespace tml {

/// The view of a window, modal or not. Which class is shown by which view stands in one table; a class that
/// is not in it is a logic_error.
std::unique_ptr<TView> MakeView(TForm& form, const TViewServices& services);

}  // namespace tml
