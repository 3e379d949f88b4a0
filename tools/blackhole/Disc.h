#pragma once

#include "Tracer.h"

namespace blackhole {

/// Light of three colours, linear, and how much of what lies behind it hides.
struct Light {
    double red = 0;
    double green = 0;
    double blue = 0;
    double cover = 0;  // 0 to 1
};

/// A thin disc of hot gas on circular orbits, from the innermost stable one outwards.
namespace Disc {

inline constexpr double inner = 3;  // the innermost stable circular orbit, 6 M
inline constexpr double outer = 7.4;

/// What the disc sends from a crossing towards the eye; nothing beside the disc.
[[nodiscard]] Light light(const Crossing& crossing);

}  // namespace Disc
}  // namespace blackhole
