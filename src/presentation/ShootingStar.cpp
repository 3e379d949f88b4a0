#include "presentation/ShootingStar.h"

#include "presentation/PacedSchedule.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace tavrel {
namespace {

/// A straight way across the view, in points.
struct Path {
    double startX;
    double startY;
    double directionX;  // both together of length 1
    double directionY;
    double length;
};

Path pathOf(std::uint64_t period, ViewSize view) {
    constexpr std::uint64_t scatter = 0x9E37'79B9'7F4A'7C15;  // neighbouring periods get unlike seeds
    StarGenerator generator((period + 1) * scatter);
    const bool rightwards = generator.draw() < 0.5;
    const double across = generator.draw() * 0.35 + 0.08;  // from the side it comes from
    const double startY = view.height * (generator.draw() * 0.25 + 0.05);
    const double slope = (generator.draw() * 20 + 18) * std::numbers::pi / 180;  // 18 to 38 degrees
    return {view.width * (rightwards ? across : 1 - across), startY, (rightwards ? 1 : -1) * std::cos(slope),
            std::sin(slope), std::min(view.width * 0.5, view.height * 0.9)};
}

}  // namespace

std::optional<ShootingStar> shootingStar(ViewSize view, double time) {
    constexpr double longestTail = 0.35;  // of the path
    const double age = shootingStarAge(time);
    if (!(age < shootingStarDuration)) return std::nullopt;
    const auto period = static_cast<std::int64_t>(std::floor(time / shootingStarPeriod));
    const Path path = pathOf(static_cast<std::uint64_t>(period), view);

    const double progress = age / shootingStarDuration;
    const double glow = std::sin(progress * std::numbers::pi);
    const double head = path.length * (1 - std::pow(1 - progress, 2));  // slows down
    const double tail = std::max(head - path.length * longestTail * glow, 0.0);
    ShootingStar star;
    star.headX = path.startX + path.directionX * head;
    star.headY = path.startY + path.directionY * head;
    star.tailX = path.startX + path.directionX * tail;
    star.tailY = path.startY + path.directionY * tail;
    star.opacity = glow;
    return star;
}

}  // namespace tavrel
