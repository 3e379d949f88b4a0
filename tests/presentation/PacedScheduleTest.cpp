#include "presentation/PacedSchedule.h"

#include <cmath>
#include <tuple>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(PacedSchedule, RunsSmoothlyOnlyWhileAShootingStarCrosses) {
    // The time, the entry after it, and that entry without shooting stars.
    constexpr std::tuple<double, double, double> cases[] = {
        {22.5, 676.0 / 30, 271.0 / 12},                               // amid the window
        {22.96, 276.0 / 12, 276.0 / 12},                              // just past it
        {790'000'003.1, 9'480'000'038.0 / 12, 9'480'000'038.0 / 12},  // no loss in a clock of our days
    };
    for (const auto& [time, next, plainNext] : cases) {
        EXPECT_NEAR((PacedSchedule{12, false, true}.next(time).value()), next, 1e-6) << time;
        EXPECT_NEAR((PacedSchedule{12, false, false}.next(time).value()), plainNext, 1e-6) << time;
    }
}

TEST(PacedSchedule, AlwaysMovesOnAndNeverLeavesAnEntryOut) {
    for (const double fps : {12.0, 30.0, 60.0}) {
        const PacedSchedule schedule{fps, false, false};
        double time = 0.0123;
        for (int i = 0; i < 50'000; ++i) {
            const double next = schedule.next(time).value();
            ASSERT_GT(next, time);
            ASSERT_LT(next - time, 1.001 / fps) << time;
            ASSERT_NEAR(next * fps, std::round(next * fps), 1e-6);
            time = next;
        }
    }
}

TEST(PacedSchedule, EndsWhenNothingIsToMove) {
    EXPECT_FALSE((PacedSchedule{12, true, true}.next(22.5)));
    EXPECT_FALSE((PacedSchedule{12, false, true}.next(22.5, PacedSchedule::Mode::lowFrequency)));
    EXPECT_FALSE((PacedSchedule{0, false, false}.next(22.5)));
}

}  // namespace
}  // namespace tavrel
