#pragma once

#include <string>
#include <string_view>

namespace tml {

/// A text on one line, with signs for its line breaks, tabs and blanks at the ends: a long text of blanks is
/// told from an empty one, and a line break from a blank.
std::string WithMarkedBlanks(std::string_view text);

}  // namespace tml
