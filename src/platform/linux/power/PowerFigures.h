#pragma once

#include "platform/Sensors.h"
#include "platform/linux/power/PowerSupply.h"

#include <optional>
#include <vector>

/// What the power supplies of a machine come to.
namespace tavrel::PowerFigures {

/// The batteries among the supplies of the machine as one; nothing without any.
[[nodiscard]] std::optional<Sensors::Battery> battery(const std::vector<PowerSupply>& supplies);

/// The batteries among the supplies of devices beside it, sorted by name.
[[nodiscard]] std::vector<Sensors::Accessory> accessories(const std::vector<PowerSupply>& supplies);

}  // namespace tavrel::PowerFigures
