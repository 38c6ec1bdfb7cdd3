#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>

namespace tml {

/// Four times the work may take ten times the time on a busy machine; what is quadratic takes sixteen times.
/// run does the work for a size and tells whether it came out right; the best of three runs counts.
inline void ExpectLinearGrowth(int size, const std::function<bool(int size)>& run) {
    const auto best = [&](int count) {
        auto shortest = std::chrono::nanoseconds::max();
        for (int i = 0; i < 3; ++i) {
            const auto start = std::chrono::steady_clock::now();
            EXPECT_TRUE(run(count)) << count;
            shortest = std::min<std::chrono::nanoseconds>(shortest, std::chrono::steady_clock::now() - start);
        }
        return shortest;
    };
    const auto small = best(size);
    const auto large = best(4 * size);
    EXPECT_LT(large.count(), 10 * small.count()) << size << ": " << small.count() << " ns";
}

}  // namespace tml
