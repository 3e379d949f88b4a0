#include "models/analyze/AnalyzeOrder.h"

#include <algorithm>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;

TEST(AnalyzeOrder, WhatIsNotMeasuredStandsWhereAHundredMebibytesWould) {
    constexpr std::int64_t mebibyte = 1024LL * 1024;
    // Ids in the order of names; sizes in the order that is wanted.
    const std::vector<AnalyzeOrder::Key> wanted = {
        {200 * mebibyte, 9},
        {100 * mebibyte, 7},
        {100 * mebibyte, 8},
        {std::nullopt, 2},
        {std::nullopt, 5},
        {100 * mebibyte - 1, 0},
        {50 * mebibyte, 1},
        {0, 3},
        {0, 4},
    };
    std::vector<AnalyzeOrder::Key> keys = wanted;
    std::mt19937 random(3);
    for (int round = 0; round < 50; ++round) {
        std::shuffle(keys.begin(), keys.end(), random);
        std::vector<std::uint32_t> ids;
        for (const auto at : AnalyzeOrder::sorted(keys)) ids.push_back(keys[at].id);
        ASSERT_THAT(ids, ElementsAre(9, 7, 8, 2, 5, 0, 1, 3, 4));
    }
}

}  // namespace
}  // namespace tavrel
