#include "presentation/PacedSchedule.h"
#include "presentation/ShootingStar.h"
#include "presentation/Stars.h"

#include <cmath>
#include <utility>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

constexpr ViewSize view = {960, 640};

TEST(Starfield, IsTheSkyOfItsSeed) {
    const auto stars = Starfield{200, 42}.stars();
    EXPECT_EQ(stars, (Starfield{200, 42}.stars()));
    EXPECT_NE(stars, (Starfield{200, 43}.stars()));
    // Reckoned apart from this program: the second star shows that each takes four draws.
    EXPECT_DOUBLE_EQ(stars[0].x, 0.5674);
    EXPECT_DOUBLE_EQ(stars[0].y, 0.5471);
    EXPECT_DOUBLE_EQ(stars[1].r, 1.39825);
    EXPECT_DOUBLE_EQ(stars[1].alpha, 0.39684);
}

TEST(LiveStarfield, StarsGlideAndComeBackUnseen) {
    constexpr double step = 1.0 / 12;
    int wraps = 0;
    for (const Star& star : LiveStarfield::stars()) {
        DrawnStar before = LiveStarfield::drawn(star, view, 790'000'000);
        for (int i = 1; i < 20'000; ++i) {
            const DrawnStar now = LiveStarfield::drawn(star, view, 790'000'000 + i * step);
            ASSERT_TRUE(now.x >= -10 && now.x <= view.width + 10) << now.x;
            ASSERT_TRUE(now.y >= -10 && now.y <= view.height + 10) << now.y;
            ASSERT_TRUE(now.opacity > 0 && now.opacity <= star.alpha) << now.opacity;
            if (std::abs(now.x - before.x) > 1) {
                ++wraps;
                ASSERT_GT(std::abs(before.x - view.width / 2), view.width / 2 + 9);  // in the margin
            }
            before = now;
        }
    }
    EXPECT_GT(wraps, 0);
}

TEST(ShootingStar, CrossesTheViewOnceAPeriodOnAPathOfItsOwn) {
    double before = -1;
    for (int period = 0; period < 60; ++period) {
        const double start = period * shootingStarPeriod;
        EXPECT_FALSE(shootingStar(view, start - 0.01)) << period;
        EXPECT_FALSE(shootingStar(view, start + shootingStarDuration + 0.001)) << period;
        const auto first = shootingStar(view, start + 1e-6);
        ASSERT_TRUE(first) << period;
        EXPECT_NE(std::exchange(before, first->headX), first->headX);

        double height = first->headY;
        for (double age = 0.05; age < shootingStarDuration; age += 0.05) {
            const auto star = shootingStar(view, start + age);
            ASSERT_TRUE(star) << period << " " << age;
            EXPECT_TRUE(star->headX > 0 && star->headX < view.width);
            EXPECT_TRUE(star->headY > height && star->headY < view.height);  // downwards
            EXPECT_LE(star->tailY, star->headY);
            EXPECT_TRUE(star->opacity > 0 && star->opacity <= 1);
            height = star->headY;
        }
    }
}

}  // namespace
}  // namespace tavrel
