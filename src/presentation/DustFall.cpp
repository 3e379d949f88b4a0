#include "presentation/DustFall.h"

#include "presentation/Stars.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace tavrel::DustFall {

namespace {

constexpr std::uint64_t seed = 0x56E27EB562EDDF5D;
constexpr double innermost = 0.18;  // of the view, where a fall ends
constexpr double squash = 0.55;
constexpr double turned = 2.6;  // radians, in a whole fall
constexpr double smallest = 0.6;
constexpr double growth = 0.7;

/// The direction `angle` as it looks where heights are `squash` of what they are; goes on without a leap.
double flattened(double angle) {
    const double seen = std::atan2(squash * std::sin(angle), std::cos(angle));
    return angle + std::remainder(seen - angle, 2 * std::numbers::pi);
}

std::array<Particle, count> generate() {
    StarGenerator generator(seed);
    std::array<Particle, count> all;
    for (std::size_t i = 0; i < count; ++i) {
        Particle& particle = all[i];
        particle.angle = generator.draw() * 2 * std::numbers::pi;
        particle.radius = generator.draw() * 0.3 + 0.6;
        particle.speed = generator.draw() * 0.3 + 0.32;
        particle.phase = generator.draw();
        particle.scale = generator.draw() * growth + smallest;
        particle.symbol = i % symbols.size();
    }
    return all;
}

}  // namespace

const std::array<Particle, count>& particles() {
    static const std::array<Particle, count> all = generate();
    return all;
}

Drawn drawn(const Particle& particle, double time, double size) {
    const double run = time * particle.speed + particle.phase;
    const double c = run - std::floor(run);
    const double f = c * c;
    const double distance = size * ((particle.radius - innermost) * (1 - f) + innermost);
    const double angle = particle.angle + f * turned;
    // A picture is stretched along a line through the middle, which has no head: half a turn changes nothing.
    const double line = std::remainder(particle.angle, std::numbers::pi) + f * turned;
    const double lit = 0.8 + 0.15 * (particle.scale - smallest) / growth;
    return {
        .x = std::cos(angle) * distance,
        .y = std::sin(angle) * distance * squash,
        .opacity = lit * std::min(c * 6, 1.0) * (1 - std::max((f - 0.72) / 0.28, 0.0)),
        .widthFactor = (f * 2.6 + 1) * particle.scale,
        .heightFactor = (1 - 0.75 * f) * particle.scale,
        .rotation = f * flattened(line),
    };
}

}  // namespace tavrel::DustFall
