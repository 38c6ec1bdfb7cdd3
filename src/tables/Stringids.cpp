#include "tables/Stringids.h"

#include <algorithm>

#include "base/Utf8.h"

namespace tml {
namespace {

bool IsControlChar(char c) {
    return static_cast<unsigned char>(c) < ' ';
}

/// Letters of other scripts count, too.
bool IsPlainIDChar(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '-' || c == '.' || static_cast<unsigned char>(c) >= 0x80;
}

}  // namespace

bool IsStringID(std::string_view text) {
    return !text.empty() && Trim(text).size() == text.size() &&
           std::none_of(text.begin(), text.end(), IsControlChar);
}

bool IsPlainStringID(std::string_view id) {
    return std::all_of(id.begin(), id.end(), IsPlainIDChar);
}

bool IsEscapedInSource(std::string_view id) {
    return id.find_first_of("'\"\\") != std::string_view::npos;
}

}  // namespace tml
