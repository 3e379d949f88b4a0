#include "presentation/OrbitMotion.h"

#include "presentation/Stars.h"

#include <cmath>
#include <cstdint>

namespace tavrel::OrbitMotion {

namespace {

constexpr std::uint64_t seed = 0x5384'5412'7b09'6493;
constexpr double rimSpeed = 20;  // degrees a second
constexpr double sheenSpeed = 14;

std::array<Streak, streakCount> madeStreaks() {
    StarGenerator generator(seed);
    std::array<Streak, streakCount> made;
    for (Streak& streak : made) {
        streak.radius = generator.draw();
        streak.start = generator.draw();
        streak.length = generator.draw() * 0.16 + 0.04;
        streak.speed = (1 - streak.radius) * 0.05 + 0.02;
        streak.alpha = generator.draw() * 0.22 + 0.1;
    }
    return made;
}

}  // namespace

double Streak::turn(double time) const {
    const double turns = start + speed * time;
    return turns - std::floor(turns);
}

std::span<const Streak> streaks() {
    static const auto all = madeStreaks();
    return all;
}

std::array<Stroke, 3> horizonStrokes(double swell) {
    return {{{9 * swell, 0.06}, {5 * swell, 0.12}, {2.6 * swell, 0.25}}};
}

double swell(double time) {
    return 1 + largestSwell * std::sin(1.3 * time);
}

double rimTurn(double time) {
    return std::fmod(rimSpeed * time, 360);
}

double rimOpacity(double time) {
    return 0.85 + 0.1 * std::sin(0.9 * time);
}

double sheenTurn(double time) {
    return std::fmod(sheenSpeed * time, 360);
}

double hazeOpacity(double time) {
    return 0.1 + 0.03 * std::sin(1.7 * time);
}

}  // namespace tavrel::OrbitMotion
