#pragma once

#include <functional>

namespace blackhole {

struct Vector {
    double x = 0;
    double y = 0;
    double z = 0;
};

/// What a ray met on its way back from the eye.
enum class End { captured, escaped };

struct Path {
    End end = End::escaped;
    double closest = 0;  // how near it came to the middle
};

/// Where a ray crosses the plane of the disc.
struct Crossing {
    double radius = 0;  // in Schwarzschild radii, as all lengths here
    double azimuth = 0;
    double spin =
        0;  // angular momentum about the disc's axis of the light on its way to the eye, for energy 1
};

/// Follows one ray of light back from the eye through the space around a hole that does not rotate. Every
/// crossing of the plane y = 0 is told to `visit`, which answers whether to look further.
///
/// In Schwarzschild's geometry a photon's path obeys Binet's equation u'' + u = 3/2 u² (u = 1/r, lengths in
/// Schwarzschild radii; e.g. Misner, Thorne, Wheeler, Gravitation, section 25.6). The same path is that of a
/// particle in flat space under the acceleration -3/2 h² r / |r|⁵, h its constant angular momentum, which is
/// what is integrated here.
Path trace(Vector from, Vector direction, const std::function<bool(const Crossing&)>& visit);

}  // namespace blackhole
