#include "presentation/Whoomp.h"

#include <cmath>
#include <numbers>
#include <numeric>
#include <span>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

constexpr int rate = Whoomp::usualSampleRate;

std::size_t frameAt(double seconds) {
    return static_cast<std::size_t>(seconds * rate);
}

/// How strongly a frequency in Hz sounds for a tenth of a second.
double strengthAt(const std::vector<float>& samples, double frequency, double from) {
    constexpr double span = 0.1;
    double cosine = 0;
    double sine = 0;
    for (std::size_t frame = frameAt(from); frame < frameAt(from + span); ++frame) {
        const double angle = 2 * std::numbers::pi * frequency * static_cast<double>(frame) / rate;
        cosine += samples[frame] * std::cos(angle);
        sine += samples[frame] * std::sin(angle);
    }
    return std::hypot(cosine, sine);
}

TEST(Whoomp, IsTheSameSoundEveryTime) {
    const auto samples = Whoomp::render(rate);
    ASSERT_EQ(samples.size(), 74'970U);
    EXPECT_EQ(samples, Whoomp::render(rate));
    EXPECT_EQ(samples.front(), 0.0F);

    // Reckoned apart from this program, from the same recipe.
    struct Row {
        std::size_t frame;
        double sample;
    };
    constexpr Row rows[] = {{4'410, 0.0015932892621620797}, {13'230, -0.0008017042969491285},
                            {26'460, 0.006528801586821716}, {35'280, -0.005929492325671761},
                            {44'100, 0.003046891031869346}, {66'150, 0.001221281598375716},
                            {74'969, -0.001194360857956142}};
    for (const Row& row : rows) EXPECT_NEAR(samples[row.frame], row.sample, 1e-8) << row.frame;
    const double energy = std::inner_product(samples.begin(), samples.end(), samples.begin(), 0.0);
    EXPECT_NEAR(energy, 1.2703607904920835, 1e-6);
}

TEST(Whoomp, IsQuiet) {
    for (const float sample : Whoomp::render(rate)) ASSERT_LT(std::abs(sample), 0.03F);
}

TEST(Whoomp, EachBellIsHeardFromItsOwnMomentOn) {
    struct Bell {
        double frequency;
        double start;
    };
    constexpr Bell bells[] = {{1318.5, 0.55}, {1975.5, 0.72}, {2637.0, 0.9}};
    const auto samples = Whoomp::render(rate);
    for (const Bell& bell : bells) {
        const double before = strengthAt(samples, bell.frequency, bell.start - 0.1);
        EXPECT_GT(strengthAt(samples, bell.frequency, bell.start + 0.03), before * 10) << bell.frequency;
        EXPECT_GT(strengthAt(samples, bell.frequency, 0.95), before * 10) << bell.frequency;
    }
}

TEST(Whoomp, LastsAsLongAtAnyRate) {
    EXPECT_EQ(Whoomp::render(8'000).size(), 13'600U);
    EXPECT_EQ(Whoomp::render(48'000).size(), 81'600U);
    EXPECT_TRUE(Whoomp::render(0).empty());
    EXPECT_TRUE(Whoomp::render(-1).empty());
}

}  // namespace
}  // namespace tavrel
