#pragma once

#include "platform/Sensors.h"

#include <vector>

namespace tavrel {

/// Sorted by name. Several of one name are one device, and the last of them counts.
[[nodiscard]] std::vector<Sensors::Accessory> accessoriesByName(const std::vector<Sensors::Accessory>& found);

}  // namespace tavrel
