#include "forms/Formchars.h"

#include <algorithm>
#include <cstring>

namespace tml {

bool IsFormName(std::string_view text) {
    bool atStart = true;
    for (const char c : text) {
        if (c == '.' && !atStart) {
            atStart = true;
        } else if (IsFormChar(c, atStart ? kNameStart : kNameStart | kDigit)) {
            atStart = false;
        } else {
            return false;
        }
    }
    return !atStart;
}

bool IsAscii(std::string_view text) {
    std::size_t i = 0;
    for (; i + 8 <= text.size(); i += 8) {
        std::uint64_t block = 0;
        std::memcpy(&block, text.data() + i, 8);
        if ((block & 0x8080808080808080U) != 0) return false;
    }
    return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(i), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace tml
