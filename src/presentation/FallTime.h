#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

/// How long something takes to fall into the hole: the heavier, the slower.
namespace tavrel {

inline constexpr double lightestFall = 2.0;  // seconds, up to 1 kB
inline constexpr double heaviestFall = 4.5;  // seconds, from 10 GB on

/// Where a byte count lies between 1 kB (0) and 10 GB (1) on a logarithmic scale, never outside.
[[nodiscard]] inline double fallWeight(std::int64_t bytes) {
    constexpr double lightest = 3;  // powers of ten
    constexpr double span = 7;
    const double magnitude = std::log10(static_cast<double>(std::max<std::int64_t>(bytes, 1)));
    return std::clamp((magnitude - lightest) / span, 0.0, 1.0);
}

/// In seconds.
[[nodiscard]] inline double fallTime(std::int64_t bytes) {
    return fallWeight(bytes) * (heaviestFall - lightestFall) + lightestFall;
}

}  // namespace tavrel
