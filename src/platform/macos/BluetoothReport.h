#pragma once

#include "platform/Sensors.h"

#include <string>
#include <vector>

/// What the tool "system_profiler" says of Bluetooth, as JSON.
namespace tavrel::BluetoothReport {

/// The connected devices that report a level of charge, in the report's order, each with the lowest of its
/// levels. Takes any bytes: a report of another shape gives an empty list.
[[nodiscard]] std::vector<Sensors::Accessory> batteries(const std::string& json);

}  // namespace tavrel::BluetoothReport
