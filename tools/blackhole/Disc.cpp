#include "Disc.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace blackhole::Disc {

namespace {

double smoothstep(double from, double to, double value) {
    const double t = std::clamp((value - from) / (to - from), 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

/// A value from 0 to 1 for a knot of a lattice that repeats `period` knots round the disc.
double lattice(int ring, int turn, int period) {
    auto x = static_cast<std::uint32_t>(ring) * 374761393U +
             static_cast<std::uint32_t>(((turn % period) + period) % period) * 668265263U;
    x = (x ^ (x >> 13U)) * 1274126177U;
    x ^= x >> 16U;
    return static_cast<double>(x & 0xFFFFU) / 0xFFFF;
}

/// Smooth noise over radius and azimuth, seamless round the disc.
double noise(double radius, double turns, int period) {
    const double across = turns * period;
    const int ring = static_cast<int>(std::floor(radius));
    const int turn = static_cast<int>(std::floor(across));
    const double a = smoothstep(0, 1, radius - ring);
    const double b = smoothstep(0, 1, across - turn);
    const double near = lattice(ring, turn, period) * (1 - b) + lattice(ring, turn + 1, period) * b;
    const double far = lattice(ring + 1, turn, period) * (1 - b) + lattice(ring + 1, turn + 1, period) * b;
    return near * (1 - a) + far * a;
}

/// Streaks along the orbits, wound up by the gas inside going round faster.
double streaks(double radius, double azimuth) {
    const double turns = azimuth / (2 * std::numbers::pi) + 1.1 * std::pow(inner / radius, 1.5) + 2;
    double sum = 0;
    double weight = 0.5;
    double rings = 4;
    int period = 5;
    for (int octave = 0; octave < 4; ++octave) {
        sum += weight * noise(radius * rings, turns - std::floor(turns), period);
        weight *= 0.6;
        rings *= 2.1;
        period *= 2;
    }
    return sum / 1.09;
}

/// Energy that a ring of the disc radiates, 1 at its brightest (Shakura and Sunyaev, "Black holes in binary
/// systems. Observational appearance", Astronomy and Astrophysics 24, 1973).
double flux(double radius) {
    constexpr double brightest = 0.00210;  // the greatest value of the formula, near 1.36 times `inner`
    return (1 - std::sqrt(inner / radius)) / (radius * radius * radius) / brightest;
}

/// How the frequency changes between gas and eye, by the motion of the gas and the climb out of the hole
/// (Luminet, "Image of a spherical black hole with thin accretion disk", Astronomy and Astrophysics 75, 1979,
/// equation 19). Above 1 where the gas comes towards the eye: on the left.
double shift(const Crossing& crossing) {
    const double angularSpeed = std::sqrt(0.5 / (crossing.radius * crossing.radius * crossing.radius));
    return std::sqrt(1 - 1.5 / crossing.radius) / (1 - angularSpeed * crossing.spin);
}

/// From deep orange over orange and peach to white-hot, linear.
Light colourOf(double heat) {
    struct Stop {
        double heat, red, green, blue;
    };
    constexpr std::array stops = {
        Stop{0.00, 0.10, 0.012, 0.002}, Stop{0.22, 0.55, 0.09, 0.012}, Stop{0.48, 1.00, 0.30, 0.055},
        Stop{0.74, 1.00, 0.57, 0.26},   Stop{1.00, 1.00, 0.86, 0.70},
    };
    const double value = std::clamp(heat, 0.0, 1.0);
    std::size_t next = 1;
    while (next + 1 < stops.size() && value > stops[next].heat) ++next;
    const Stop& a = stops[next - 1];
    const Stop& b = stops[next];
    const double part = (value - a.heat) / (b.heat - a.heat);
    return {a.red + (b.red - a.red) * part, a.green + (b.green - a.green) * part,
            a.blue + (b.blue - a.blue) * part, 0};
}

}  // namespace

Light light(const Crossing& crossing) {
    const double radius = crossing.radius;
    if (radius <= inner || radius >= outer) return {};
    const double edge = smoothstep(inner, inner + 0.25, radius) * (1 - smoothstep(4.6, outer, radius));
    const double texture = 0.35 + 1.05 * streaks(radius, crossing.azimuth);
    // A black body's light grows with the fourth power of its temperature, and the shift makes it look hotter
    // by as much as it raises the frequency.
    const double brightness = std::pow(shift(crossing), 4) * flux(radius) * texture * edge;
    const double temperature = std::pow(brightness, 0.25);
    // For the eye: colours further apart than a black body's, and light pressed together, as the side that
    // goes away would be black beside the one that comes.
    Light light = colourOf(0.62 * temperature * temperature);
    const double strength = std::min(1.25 * std::pow(brightness, 0.65), 2.2);
    light.red *= strength;
    light.green *= strength;
    light.blue *= strength;
    light.cover = std::clamp(edge * (0.35 + 0.6 * texture), 0.0, 0.94);
    return light;
}

}  // namespace blackhole::Disc
