#pragma once

#include "platform/ProcessSource.h"

#include <cstdint>
#include <string_view>
#include <vector>

/// What `top` of macOS prints with "-l 2 -stats pid,command,cpu,mem,power" (top(1)).
namespace tavrel::TopReport {

/// The rows of the last sample, in its order; rows that are not understood are left out. Its head is the last
/// line that begins with "PID"; without one there are no rows.
[[nodiscard]] std::vector<ProcessInfo> processes(std::string_view output);

/// Bytes of a figure such as "512M+": the last character is the unit (K, M or G; any other counts single
/// bytes), signs at the ends mark a change and are dropped. So a figure without a unit loses its last
/// digit, unless it has no other: `top` always prints a unit. 0 for what is no figure.
[[nodiscard]] std::int64_t memory(std::string_view text);

}  // namespace tavrel::TopReport
