#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tml {

/// "1 entry", "2 entries".
std::string Counted(std::int64_t count, std::string_view one, std::string_view many);

}  // namespace tml
