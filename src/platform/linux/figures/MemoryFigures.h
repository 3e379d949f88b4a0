#pragma once

#include "platform/Sensors.h"

#include <cstdint>
#include <optional>
#include <string_view>

/// What the memory holds, after proc(5), "/proc/meminfo" and "/proc/pressure".
namespace tavrel::MemoryFigures {

/// All but the pressure. Used is what programs could not have: caches that the kernel would give up are free.
[[nodiscard]] Sensors::Memory parse(std::string_view meminfo);

/// The level of memory pressure for the share of the last ten seconds in which some task stood still for want
/// of memory.
[[nodiscard]] std::optional<std::int64_t> pressureLevel(std::string_view pressure);

}  // namespace tavrel::MemoryFigures
