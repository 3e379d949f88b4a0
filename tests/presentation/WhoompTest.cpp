#include "presentation/Whoomp.h"

#include <numeric>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

constexpr int rate = Whoomp::usualSampleRate;

TEST(Whoomp, IsTheSameSoundEveryTime) {
    const auto samples = Whoomp::render(rate);
    ASSERT_EQ(samples.size(), 74'970U);
    EXPECT_EQ(samples, Whoomp::render(rate));
    EXPECT_EQ(samples.front(), 0.0F);

    // Reckoned apart from this program, from the same recipe.
    constexpr std::pair<std::size_t, double> rows[] = {
        {4'410, 0.0015932892621620797},  {13'230, -0.0008017042969491285}, {26'460, 0.006528801586821716},
        {35'280, -0.005929492325671761}, {44'100, 0.003046891031869346},   {66'150, 0.001221281598375716},
        {74'969, -0.001194360857956142}};
    for (const auto& [frame, sample] : rows) EXPECT_NEAR(samples[frame], sample, 1e-8) << frame;
    const double energy = std::inner_product(samples.begin(), samples.end(), samples.begin(), 0.0);
    EXPECT_NEAR(energy, 1.2703607904920835, 1e-6);
}

TEST(Whoomp, LastsAsLongAtAnyRate) {
    EXPECT_EQ(Whoomp::render(8'000).size(), 13'600U);
    EXPECT_EQ(Whoomp::render(48'000).size(), 81'600U);
    EXPECT_TRUE(Whoomp::render(0).empty());
    EXPECT_TRUE(Whoomp::render(-1).empty());
}

}  // namespace
}  // namespace tavrel
