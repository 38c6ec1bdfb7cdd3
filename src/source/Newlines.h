#pragma once

#include <cstddef>
#include <optional>

#include "source/Sourcetext.h"

namespace tml {

/// The start of the first line on which something may be written behind what ends at an offset: in front of
/// the next code or directive, behind comments that begin on the same line, never in one. None where more
/// follows on the line. Byte offsets, 0-based.
std::optional<std::size_t> LineBehind(const TSourceText& source, std::size_t end);

}  // namespace tml
