#pragma once

#include "platform/Sensors.h"
#include "platform/macos/Property.h"

#include <vector>

/// The battery of a Mac, put together from what its services say of it.
namespace tavrel::BatteryReading {

/// The first of the power sources that is built in; no dictionary where there is none.
[[nodiscard]] Property internalSource(const std::vector<Property>& sources);

/// `source` is the internal one, `controller` the service of the battery itself ("AppleSmartBattery") and
/// `adapter` what hangs on the mains; either of the two may be missing.
[[nodiscard]] Sensors::Battery battery(const Property& source, const Property& controller,
                                       const Property& adapter);

}  // namespace tavrel::BatteryReading
