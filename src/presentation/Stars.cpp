#include "presentation/Stars.h"

#include <cmath>
#include <numbers>

namespace tavrel {
namespace {

constexpr std::size_t liveCount = 120;
constexpr std::uint64_t liveSeed = 0x9E37'79B9'7F4A'7C15;
constexpr std::size_t nearEach = 4;

/// The remainder that has the sign of the divisor.
double wrapped(double value, double span) {
    return value - std::floor(value / span) * span;
}

std::vector<Star> liveStars() {
    StarGenerator generator(liveSeed);
    std::vector<Star> stars(liveCount);
    for (std::size_t i = 0; i < liveCount; ++i) {
        Star& star = stars[i];
        star.x = generator.draw();
        star.y = generator.draw();
        star.r = generator.draw() * 1.2 + 0.4;
        star.alpha = generator.draw() * 0.55 + 0.15;
        star.speed = generator.draw() * 1.6 + 0.4;
        star.phase = generator.draw() * 2 * std::numbers::pi;
        star.near = i % nearEach == 0;
    }
    return stars;
}

}  // namespace

double StarGenerator::draw() {
    constexpr std::uint64_t steps = 10'000;
    state_ ^= state_ << 13U;
    state_ ^= state_ >> 7U;
    state_ ^= state_ << 17U;
    return static_cast<double>(state_ % steps) / static_cast<double>(steps);
}

std::vector<Star> Starfield::stars() const {
    StarGenerator generator(seed);
    std::vector<Star> all(count);
    for (Star& star : all) {
        star.x = generator.draw();
        star.y = generator.draw();
        star.r = generator.draw() * 1.1 + 0.4;
        star.alpha = generator.draw() * 0.6 + 0.15;
    }
    return all;
}

std::span<const Star> LiveStarfield::stars() {
    static const std::vector<Star> all = liveStars();
    return all;
}

DrawnStar LiveStarfield::drawn(const Star& star, ViewSize view, double time) {
    constexpr double margin = 20.0;  // points, half of it on each side
    constexpr double wrapLimit = -10.0;
    constexpr double nearFactor = 1.3;
    constexpr double steady = 0.55;     // of the opacity
    constexpr double twinkling = 0.45;  // of the opacity, and how much slower the far stars drift
    const double factor = star.near ? nearFactor : 1.0;
    const double drift = time * star.speed * (star.near ? nearFactor : twinkling);
    DrawnStar drawn;
    drawn.x = wrapped(star.x * (view.width + margin) + drift, view.width + margin) + wrapLimit;
    drawn.y = star.y * (view.height + margin) + wrapLimit;
    drawn.diameter = star.r * factor;
    drawn.opacity = star.alpha * (steady + twinkling * std::sin(time * star.speed + star.phase));
    return drawn;
}

}  // namespace tavrel
