#include "disk/RingArc.h"

#include <cmath>
#include <numbers>

namespace tavrel {

namespace {

constexpr double circle = 2 * std::numbers::pi;
constexpr double thinnestWithGap = 0.006;  // turns
constexpr double usualGap = 0.0015;

double angleAt(double turn) {
    return turn * circle - std::numbers::pi / 2;
}

}  // namespace

double OrbitPoint::radius() const {
    return std::hypot(x, y);
}

double OrbitPoint::turn() const {
    const double turns = std::atan2(x, -y) / circle;
    return turns < 0 ? turns + 1 : turns;
}

double RingArc::gap() const {
    return end - start > thinnestWithGap ? usualGap : 0;
}

double RingArc::startAngle() const {
    return angleAt(start + gap());
}

double RingArc::endAngle() const {
    return angleAt(end - gap());
}

bool RingArc::contains(const OrbitPoint& point) const {
    const double radius = point.radius();
    const double turn = point.turn();
    return radius >= inner && radius <= outer && turn >= start + gap() && turn <= end - gap();
}

}  // namespace tavrel
