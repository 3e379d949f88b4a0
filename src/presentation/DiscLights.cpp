#include "presentation/DiscLights.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tavrel::DiscLights {

namespace {

constexpr double pi = std::numbers::pi;
constexpr double tiltSine = 0.3420201433256687;  // 20 degrees
constexpr double tiltCosine = 0.9396926207859084;

double fraction(double value) {
    return value - std::floor(value);
}

}  // namespace

std::array<Light, knotCount> knots(double phase, double width) {
    constexpr double innermost = 0.17;  // of the width
    constexpr double outermost = 0.34;
    constexpr double fastest = 3.6;  // turns with the phase
    constexpr double slowest = 1.8;
    constexpr std::array sizes = {0.012, 0.035, 0.05};
    std::array<Light, knotCount> lights;
    for (std::size_t i = 0; i < knotCount; ++i) {
        const double part = static_cast<double>(i) / (knotCount - 1);
        const double radius = width * (innermost + (outermost - innermost) * part);
        const double angle = phase * (fastest + (slowest - fastest) * part) * 2 * pi / 3 +
                             static_cast<double>(i) * 2.399963;  // the golden angle, so that none line up
        lights[i] = {
            .x = std::cos(angle) * radius,
            .y = -0.5 * std::sin(angle) * radius,
            .diameter = width * sizes[i % sizes.size()],
            .opacity =
                0.9 *
                (0.45 + 0.55 * (0.5 - 0.5 * std::cos(angle))),  // brighter on the left, where it comes nearer
        };
    }
    return lights;
}

Probe orbit(double phase, double size) {
    const double angle = phase * 1.6;
    const double x = std::cos(angle) * size * 0.675;
    const double y = std::sin(angle) * size * 0.31;
    const bool behind = std::sin(angle) < 0;
    return {
        .x = x * tiltCosine - y * tiltSine,
        .y = x * tiltSine + y * tiltCosine,
        .diameter = size * 0.06,
        .opacity = behind ? 0.35 : 1.0,
        .behind = behind,
    };
}

std::array<Light, flashCount> flashes(double time, double size) {
    constexpr double seen = 0.25;  // of a cycle
    std::array<Light, flashCount> lights;
    for (std::size_t i = 0; i < flashCount; ++i) {
        const auto index = static_cast<double>(i);
        const double cycle = time * 0.9 + index * 0.27;
        const double age = fraction(cycle);
        if (age >= seen) continue;
        const double angle = index * 1.9 + std::floor(cycle) * 2.4;
        lights[i] = {
            .x = size * std::cos(angle) * 0.2,
            .y = size * std::sin(angle) * 0.2 - 0.02 * size,
            .diameter = size * 0.1,
            .opacity = std::sin(age * 4 * pi),
        };
    }
    return lights;
}

std::array<Ripple, rippleCount> ripples(double time, double size) {
    constexpr double innermost = 0.2;  // of the size
    constexpr double span = 0.62;
    std::array<Ripple, rippleCount> rings;
    for (std::size_t i = 0; i < rippleCount; ++i) {
        const double part = fraction(time * 0.45 + static_cast<double>(i) / rippleCount);
        rings[i] = {
            .radius = size * (innermost + (span - innermost) * part),
            .opacity = std::sin(part * pi) * 0.35,
        };
    }
    return rings;
}

std::optional<Ring> shockwave(double age, double strength, double size) {
    const double e = age / (1.9 + strength);
    if (e <= 0 || e >= 1) return std::nullopt;
    const double first = size * 0.22;
    const double final = size * (1.2 * strength + 1.1);
    return Ring{
        .radius = first + (final - first) * (1 - std::pow(1 - e, 1.7)),
        .opacity = 0.9 * std::pow(1 - e, 1.1),
        .lineWidth = size * ((1 - e) * 0.05 + 0.006),
        .raised = size * 0.02,
    };
}

}  // namespace tavrel::DiscLights
