#pragma once

#include <string>
#include <string_view>

namespace tml {

/// A made-up translation that shows what is not localized and what does not fit: longer, its letters with
/// accents, in brackets; several lines and the parts of "short|long" each by themselves. What a program reads
/// stays as it is: placeholders (%s, %0:d, {0}, $(Name)), accelerators and their letter, doubled "&&", line
/// breaks, tags and entities, patterns of files. A text without a letter stays, too.
std::string PseudoText(std::string_view text);

}  // namespace tml
