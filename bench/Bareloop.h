#pragma once

#include <cstddef>
#include <string_view>

namespace tml::bench {

/// The number of quoted texts in Pascal source outside of comments. It does nothing but follow quotes and
/// comments byte by byte: the least that any reader of source has to do, and the measure for the scan.
std::size_t CountQuotedTexts(std::string_view text);

}  // namespace tml::bench
