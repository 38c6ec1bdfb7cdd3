#pragma once

#include <cstdint>
#include <string_view>

namespace tml {

/// CRC-32 as zlib and gzip have it.
std::uint32_t Crc32(std::string_view bytes);

}  // namespace tml
