#include "presentation/DiscLights.h"
#include "presentation/DustFall.h"
#include "presentation/FallTime.h"
#include "presentation/MotionClock.h"
#include "presentation/SwallowStream.h"

#include <cmath>
#include <limits>
#include <set>
#include <tuple>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(MotionClock, NeverJumpsAndWrapsItsPhase) {
    MotionClock clock;
    clock.step(1000, {.spinning = true, .suction = true, .open = 1, .growth = 1});
    EXPECT_EQ(clock.phase, 0);  // the first frame is a step of no time
    EXPECT_DOUBLE_EQ(clock.pace, 0.22);

    clock.step(1010, {.spinning = true});  // ten seconds later
    EXPECT_LE(clock.phase, 0.1 * clock.pace * 0.3 + 1e-12);
    EXPECT_GT(clock.phase, 0);

    const MotionClock later = clock;
    clock.step(1005, {.spinning = true});  // time that goes back
    EXPECT_EQ(clock.phase, later.phase);
    EXPECT_EQ(clock.pace, later.pace);

    clock = {.last = 0, .phase = 999.99, .pace = 2.4};
    clock.step(0.1, {.suction = true});
    EXPECT_TRUE(clock.phase >= 0 && clock.phase < 1) << clock.phase;
}

TEST(MotionClock, ArrivesAtItsTargetsWhateverTheRateOfFrames) {
    const std::tuple<MotionTargets, double, double> cases[] = {
        {{.open = 0.3}, 0.22, 0.3},
        {{.spinning = true, .open = 0.5}, 1.0, 0.5},
        {{.spinning = true, .suction = true, .open = 0}, 2.4, 1.0},
    };
    for (const auto& [targets, pace, energy] : cases) {
        MotionClock slow;
        MotionClock fast;
        for (int i = 0; i <= 40; ++i) slow.step(i * 0.05, targets);
        for (int i = 0; i <= 200; ++i) fast.step(i * 0.01, targets);
        EXPECT_NEAR(slow.pace, fast.pace, 1e-9);
        EXPECT_NEAR(slow.energy, fast.energy, 1e-9);
        for (int i = 200; i <= 2000; ++i) fast.step(i * 0.01, targets);
        EXPECT_NEAR(fast.pace, pace, 1e-6);
        EXPECT_NEAR(fast.energy, energy, 1e-6);
    }
}

TEST(FallTime, GrowsWithThePowersOfTenBetweenItsEnds) {
    using Limits = std::numeric_limits<std::int64_t>;
    const std::pair<std::int64_t, double> cases[] = {
        {Limits::min(), 2}, {1'000, 2}, {50'000'000, 3.678204}, {10'000'000'000, 4.5}, {Limits::max(), 4.5}};
    for (const auto& [bytes, seconds] : cases) EXPECT_NEAR(fallTime(bytes), seconds, 1e-6) << bytes;
}

TEST(BlackHole, FlaresWhenSomethingLandsAndNotBefore) {
    const Falling nothing = {.bytes = 0, .start = 100};  // as light as can be: 2 s of fall
    EXPECT_EQ(BlackHole::landing(nothing, 101.9), 0);
    EXPECT_NEAR(BlackHole::landing(nothing, 102), 0.35, 1e-9);
    EXPECT_LT(BlackHole::landing(nothing, 104), 0.001);

    const double crowd = 50 * BlackHole::landing({.bytes = 10'000'000'000, .start = 0}, heaviestFall);
    EXPECT_EQ(BlackHole::intensity(1, crowd, 1.5), 1.6);
    EXPECT_LT(BlackHole::scale(1, 1.6, crowd), 1.55);
}

TEST(BlackHole, AWaveRunsOnceAndOnlyWhereItIsSeen) {
    const Shock shock = {.start = 10, .strength = 1};
    EXPECT_TRUE(BlackHole::currentShock(shock, 12.89, true, 420));
    EXPECT_FALSE(BlackHole::currentShock(shock, 12.9, true, 420));
    EXPECT_FALSE(BlackHole::currentShock(shock, 11, true, 100));
    EXPECT_FALSE(BlackHole::currentShock(shock, 11, false, 420));
    EXPECT_FALSE(BlackHole::currentShock(std::nullopt, 11, true, 420));
    EXPECT_FALSE(DiscLights::shockwave(0, 1, 400));
    EXPECT_FALSE(DiscLights::shockwave(2.9, 1, 400));
    DiscLights::Ring before = {.radius = 0, .opacity = 1};
    for (double age = 0.1; age < 2.9; age += 0.1) {
        const auto ring = DiscLights::shockwave(age, 1, 400);
        ASSERT_TRUE(ring && ring->radius > before.radius && ring->opacity < before.opacity) << age;
        before = *ring;
    }
    EXPECT_LE(before.radius, 400 * 2.3);
}

TEST(DiscLights, GoOnWithoutALeapWhenThePhaseBeginsAnew) {
    const auto last = DiscLights::knots(1000 - 1e-6, 400);
    const auto first = DiscLights::knots(0, 400);
    for (std::size_t i = 0; i < DiscLights::knotCount; ++i) {
        EXPECT_NEAR(last[i].x, first[i].x, 0.01);
        EXPECT_NEAR(last[i].y, first[i].y, 0.01);
    }
}

TEST(DustFall, SpiralsInAndFadesAtBothEnds) {
    std::set<double> angles;
    for (const auto& particle : DustFall::particles()) {
        angles.insert(particle.angle);
        double before = 1e9;
        double turned = 0;
        for (double c = 0.001; c < 1; c += 0.01) {
            const auto drawn = DustFall::drawn(particle, (c - particle.phase + 10) / particle.speed, 400);
            const double distance = std::hypot(drawn.x, drawn.y / 0.55);
            EXPECT_TRUE(distance < before + 1e-6 && distance >= 400 * 0.18 - 1e-6) << distance;
            EXPECT_TRUE(drawn.opacity >= 0 && drawn.opacity <= 0.95) << drawn.opacity;
            EXPECT_NEAR(drawn.rotation, turned, 0.3);  // no leap
            before = distance;
            turned = drawn.rotation;
        }
    }
    EXPECT_EQ(angles.size(), DustFall::count);
}

TEST(SwallowStream, CarriesAnIconToTheHole) {
    const auto first = SwallowStream::icon(5'000'000, 0, 1, 400);
    const auto last = SwallowStream::icon(5'000'000, fallTime(5'000'000), 1, 400);
    EXPECT_EQ(first.opacity, 0);
    EXPECT_NEAR(std::hypot(first.x, first.y / 0.46), 0.95 * 400, 1e-6);
    EXPECT_NEAR(std::hypot(last.x, last.y / 0.46), 0.15 * 400, 1e-6);
    EXPECT_LT(last.side, first.side);
    EXPECT_EQ(first.breakUp, 0);
    EXPECT_EQ(last.breakUp, 1);
}

TEST(SwallowStream, TakesApartTheNearSideFirst) {
    const auto icon = SwallowStream::icon(1'000'000, fallTime(1'000'000) * 0.72, 0, 400);
    ASSERT_TRUE(icon.breakUp > 0.1 && icon.breakUp < 0.9 && icon.x > 0);  // the hole lies to the left
    double near = 0;
    double far = 0;
    for (int row = 0; row < SwallowStream::cellsAcross; ++row) {
        for (int column = 0; column < SwallowStream::cellsAcross; ++column) {
            const auto cell = SwallowStream::cell(icon, 7, row, column);
            EXPECT_LE(cell.side, icon.side / SwallowStream::cellsAcross + 1e-9);
            EXPECT_TRUE(cell.flight >= 0 && cell.flight <= 1) << cell.flight;
            EXPECT_EQ(SwallowStream::cell(icon, 7, row, column).x, cell.x);
            if (column < 3) near += cell.flight;
            if (column > 7) far += cell.flight;
        }
    }
    EXPECT_GT(near, far * 1.3);
}

}  // namespace
}  // namespace tavrel
