#include "base/Checksum.h"

#include <zlib.h>

namespace tml {

std::uint32_t Crc32(std::string_view bytes) {
    return static_cast<std::uint32_t>(crc32_z(0, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
}

}  // namespace tml
