#pragma once

#include <chrono>
#include <cstdint>
#include <limits>

namespace tavrel {

/// A moment of wall-clock time, to the nanosecond. Logic never asks for the time: it is handed `now`.
using Instant = std::chrono::sys_time<std::chrono::nanoseconds>;

using Days = std::chrono::duration<std::int64_t, std::ratio<86400>>;

/// Before any file that exists: what stands in for a date that cannot be read where "old" is the answer.
inline constexpr Instant distantPast = Instant::min();
/// After any file that exists: what stands in for a date that cannot be read where "new" is the answer.
inline constexpr Instant distantFuture = Instant::max();

/// A span of time in seconds, as formulas use them.
[[nodiscard]] constexpr double inSeconds(std::chrono::duration<double> span) {
    return span.count();
}

/// The moment that a file system notes as seconds since 1970 and nanoseconds below a second. Outside of what
/// an `Instant` can hold (the years 1678 to 2262) it is the nearest end of that range.
[[nodiscard]] constexpr Instant instantOf(std::int64_t seconds, std::int64_t nanoseconds) {
    constexpr std::int64_t unit = 1'000'000'000;
    constexpr std::int64_t farthest = std::numeric_limits<std::int64_t>::max() / unit - 1;
    if (seconds > farthest) return distantFuture;
    if (seconds < -farthest) return distantPast;
    return Instant(std::chrono::nanoseconds(seconds * unit + nanoseconds));
}

}  // namespace tavrel
