#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tavrel {

/// How strong the wave is that follows a clean, by the bytes it freed: 0.12 for a few, 1.0 from 20 GB on.
[[nodiscard]] inline double whoompStrength(std::int64_t freedBytes) {
    constexpr double gigabyte = 1e9;
    const double gigabytes = static_cast<double>(std::max<std::int64_t>(freedBytes, 1)) / gigabyte;
    return std::clamp((std::log10(gigabytes) + 1.4) / 2.7, 0.12, 1.0);
}

}  // namespace tavrel
