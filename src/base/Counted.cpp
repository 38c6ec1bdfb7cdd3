#include "base/Counted.h"

#include "base/Format.h"

namespace tml {

std::string Counted(std::int64_t count, std::string_view one, std::string_view many) {
    return Format("%d %s", count, count == 1 ? one : many);
}

}  // namespace tml
