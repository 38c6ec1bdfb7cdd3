#pragma once

#include <algorithm>
#include <string_view>

#include "base/Utf8.h"

namespace tml {

/// Whether calls can ask for a string by this ID: it is not empty and has no control character, a line break
/// among them, and no blank at its ends.
inline bool IsStringID(std::string_view id) {
    return !id.empty() && Trim(id).size() == id.size() &&
           std::none_of(id.begin(), id.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

/// Whether a source may write the ID in another way than it reads, which the check of string IDs does not
/// follow.
inline bool IsEscapedInSource(std::string_view id) {
    return id.find_first_of("'\"\\") != std::string_view::npos;
}

}  // namespace tml
