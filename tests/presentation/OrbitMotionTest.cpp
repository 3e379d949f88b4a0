#include "presentation/OrbitMotion.h"
#include "presentation/Spring.h"

#include <cmath>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(OrbitMotion, StreaksAreThoseOfTheSeedAndRunFasterFurtherIn) {
    const auto streaks = OrbitMotion::streaks();
    ASSERT_EQ(streaks.size(), 56U);
    // Reckoned apart from this program: the second shows that each takes four draws.
    EXPECT_DOUBLE_EQ(streaks[0].radius, 0.4442);
    EXPECT_DOUBLE_EQ(streaks[0].start, 0.4607);
    EXPECT_DOUBLE_EQ(streaks[1].length, 0.076896);
    EXPECT_DOUBLE_EQ(streaks[1].speed, 0.03632);
    EXPECT_DOUBLE_EQ(streaks[1].alpha, 0.135662);
    for (const auto& streak : streaks) {
        EXPECT_TRUE(streak.drawnRadius() >= 0.4 && streak.drawnRadius() < 0.92);
        EXPECT_TRUE(streak.speed > 0.02 && streak.speed <= 0.07);
        const double before = streak.turn(1'700'000'000);
        const double gone = streak.turn(1'700'000'001) - before;
        EXPECT_TRUE(before >= 0 && before < 1);
        EXPECT_NEAR(gone - std::floor(gone), streak.speed, 1e-6);
    }
}

TEST(Spring, ArrivesWithoutSwingingOverWhenCritical) {
    const Spring spring = {.response = 0.35, .damping = 1};
    double before = 0;
    for (double age = 0.01; age < 1; age += 0.01) {
        const double now = spring.at(age);
        EXPECT_TRUE(now > before && now < 1) << age;
        before = now;
    }
    EXPECT_GT(before, 0.999);
    const Spring loose = {.response = 1, .damping = 0.88};
    EXPECT_GT(loose.at(1.1), 1);
    EXPECT_NEAR(loose.at(1.6), 1, 0.001);
}

TEST(Spring, TheRateOfFramesDoesNotMatter) {
    for (const double damping : {0.5, 0.88, 1.0}) {
        const Spring spring = {.response = 0.6, .damping = damping};
        SprungValue fine;
        SprungValue coarse;
        for (int i = 0; i < 100; ++i) fine.step(1, 0.002, spring);
        for (int i = 0; i < 4; ++i) coarse.step(1, 0.05, spring);
        EXPECT_NEAR(fine.value, coarse.value, 1e-9);
        EXPECT_NEAR(fine.velocity, coarse.velocity, 1e-9);
        EXPECT_NEAR(fine.value, spring.at(0.2), 1e-9);
        // Sent back on its way, it goes on from where it is.
        const double turned = fine.value;
        fine.step(0, 0.0001, spring);
        EXPECT_NEAR(fine.value, turned, 0.01);
    }
}

}  // namespace
}  // namespace tavrel
