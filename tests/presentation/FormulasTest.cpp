#include "presentation/FallTime.h"

#include <limits>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

struct Row {
    std::int64_t bytes;
    double expected;
};

TEST(FallTime, GrowsWithThePowersOfTenBetweenItsEnds) {
    constexpr Row rows[] = {
        {std::numeric_limits<std::int64_t>::min(), 2.0},
        {0, 2.0},
        {999, 2.0},
        {1'000, 2.0},
        {50'000'000, 2.0 + 2.5 * 4.69897 / 7},
        {10'000'000'000, 4.5},
        {std::numeric_limits<std::int64_t>::max(), 4.5},
    };
    for (const Row& row : rows) EXPECT_NEAR(fallTime(row.bytes), row.expected, 1e-6) << row.bytes;
}

}  // namespace
}  // namespace tavrel
