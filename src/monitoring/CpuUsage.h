#pragma once

#include "platform/Sensors.h"

#include <optional>
#include <vector>

namespace tavrel {

/// The share of all processors that was busy between two readings, 0 to 1. Nothing when the readings name
/// different processors, when no tick has passed, or when a counter went back.
[[nodiscard]] std::optional<double> cpuUsage(const std::vector<Sensors::CPUTicks>& from,
                                             const std::vector<Sensors::CPUTicks>& to);

}  // namespace tavrel
