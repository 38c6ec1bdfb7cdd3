#include "forms/Formchars.h"

#include <algorithm>
#include <cstring>

namespace tml {

bool IsFormName(std::string_view text) {
    for (std::size_t pos = 0; pos < text.size(); ++pos) {
        if (!IsFormChar(text[pos], kNameStart)) return false;
        while (++pos < text.size() && IsFormChar(text[pos], kNameStart | kDigit)) {
        }
        if (pos == text.size()) return true;
        if (text[pos] != '.') return false;
    }
    return false;
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
