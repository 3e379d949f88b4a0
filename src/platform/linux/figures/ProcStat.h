#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tavrel {

/// The fields used of one line of /proc/N/stat (proc(5)).
struct ProcStat {
    std::string_view name;    // as the kernel keeps it, cut, any bytes; lies in the text it was read from
    std::uint64_t used = 0;   // ticks of processors, for itself and in the kernel
    std::uint64_t start = 0;  // ticks since the system's start
    std::int64_t pages = 0;   // resident
};

/// Nothing where the text is cut short or holds something else. The name stands in parentheses and may hold
/// whatever else the line holds, so it ends with the last ")".
[[nodiscard]] std::optional<ProcStat> procStat(std::string_view text);

}  // namespace tavrel
