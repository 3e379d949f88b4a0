#include "Tracer.h"

#include <algorithm>
#include <cmath>

namespace blackhole {

namespace {

Vector operator+(const Vector& a, const Vector& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
Vector operator*(const Vector& a, double factor) {
    return {a.x * factor, a.y * factor, a.z * factor};
}
double dot(const Vector& a, const Vector& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
Vector cross(const Vector& a, const Vector& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
double length(const Vector& a) {
    return std::sqrt(dot(a, a));
}

/// `spin` is the same all along a ray.
Crossing crossingBetween(const Vector& before, const Vector& after, double spin) {
    const double part = before.y / (before.y - after.y);
    const Vector place = before * (1 - part) + after * part;
    return {
        .radius = std::hypot(place.x, place.z),
        .azimuth = std::atan2(place.z, place.x),
        .spin = spin,
    };
}

}  // namespace

Path trace(Vector from, Vector direction, const std::function<bool(const Crossing&)>& visit) {
    constexpr double horizon = 1;
    constexpr double finestStep = 0.02;
    constexpr double stepPerRadius = 0.035;
    constexpr int mostSteps = 4000;

    const Vector momentum = cross(from, direction);
    const double h2 = dot(momentum, momentum);
    const double farAway = 1.1 * length(from);
    Vector place = from;
    Vector velocity = direction;
    const auto pull = [h2](const Vector& at) {
        const double r2 = dot(at, at);
        return at * (-1.5 * h2 / (r2 * r2 * std::sqrt(r2)));
    };
    Vector acceleration = pull(place);
    double closest = farAway;
    for (int step = 0; step < mostSteps; ++step) {
        const double radius = length(place);
        closest = std::min(closest, radius);
        if (radius < horizon) return {End::captured, closest};
        if (radius > farAway) return {End::escaped, closest};
        const double dt = std::max(finestStep, stepPerRadius * radius);
        // Velocity Verlet, of second order; its errors stay small as the steps shrink towards the hole.
        const Vector next = place + velocity * dt + acceleration * (dt * dt / 2);
        const Vector nextAcceleration = pull(next);
        velocity = velocity + (acceleration + nextAcceleration) * (dt / 2);
        if (place.y * next.y < 0 && !visit(crossingBetween(place, next, -momentum.y)))
            return {End::escaped, closest};
        place = next;
        acceleration = nextAcceleration;
    }
    return {End::captured, closest};  // caught in orbits at the photon sphere
}

}  // namespace blackhole
