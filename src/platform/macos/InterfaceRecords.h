#pragma once

#include "platform/Sensors.h"

#include <cstddef>
#include <optional>
#include <span>

/// The list of network interfaces as the routing socket of a Mac's kernel gives it: records of differing
/// lengths, those of type `RTM_IFINFO2` with the counters of one interface (<net/if.h>, `if_msghdr2`).
namespace tavrel::InterfaceRecords {

/// The bytes of all interfaces but the loopback ones. Takes any bytes; what is cut short is left out. Nothing
/// when a sum overflows.
[[nodiscard]] std::optional<Sensors::NetworkBytes> total(std::span<const std::byte> records);

}  // namespace tavrel::InterfaceRecords
