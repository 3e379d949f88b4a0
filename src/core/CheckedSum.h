#pragma once

#include <cstdint>
#include <cstdlib>

namespace tavrel {

/// The sum of two byte counts. A total past 2^63 - 1 is a fault of the program and ends it: a wrapped
/// figure would lie about what was freed.
[[nodiscard]] inline std::int64_t addBytes(std::int64_t a, std::int64_t b) {
    std::int64_t sum = 0;
    if (__builtin_add_overflow(a, b, &sum)) std::abort();
    return sum;
}

}  // namespace tavrel
