#pragma once

#include "platform/Sensors.h"
#include "platform/macos/Property.h"

#include <vector>

namespace tavrel {

/// The input devices among `services` that report their charge, by name. Several services of one product are
/// one device, and the last of them counts.
[[nodiscard]] std::vector<Sensors::Accessory> accessoriesAmong(const std::vector<Property>& services);

}  // namespace tavrel
