#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace tml::fuzz {

/// Ends the process, which the fuzzer reports with the input that led here, where a claim does not hold.
inline void Expect(bool holds, std::string_view claim) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %.*s\n", static_cast<int>(claim.size()), claim.data());
    std::abort();
}

}  // namespace tml::fuzz
