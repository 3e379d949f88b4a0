#pragma once

#include <chrono>

namespace tavrel {

/// A moment of wall-clock time, to the nanosecond. Logic never asks for the time: it is handed `now`.
using Instant = std::chrono::sys_time<std::chrono::nanoseconds>;

using Days = std::chrono::duration<std::int64_t, std::ratio<86400>>;

/// Before any file that exists: what stands in for a date that cannot be read where "old" is the answer.
inline constexpr Instant distantPast = Instant::min();
/// After any file that exists: what stands in for a date that cannot be read where "new" is the answer.
inline constexpr Instant distantFuture = Instant::max();

}  // namespace tavrel
