#pragma once

#include "platform/Sensors.h"
#include "platform/linux/power/SystemBus.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tavrel {

/// What UPower knows of batteries that the kernel does not: a steadier time to empty, and the charge of
/// devices that other services report (the reference of its D-Bus interface). One thread at a time.
class UPower {
  public:
    /// `bus` outlives this object.
    explicit UPower(SystemBus& bus) : bus_(bus) {}

    /// Until the machine's batteries are empty; nothing while they are not, or while UPower is not asked.
    [[nodiscard]] std::optional<std::int64_t> minutesLeft();
    /// Input devices, and those of any other kind; each sorted by name. Nothing where UPower does not answer.
    [[nodiscard]] std::optional<std::vector<Sensors::Accessory>> inputDevices();
    [[nodiscard]] std::optional<std::vector<Sensors::Accessory>> otherDevices();

  private:
    [[nodiscard]] std::optional<std::vector<Sensors::Accessory>> devices(bool (*isWanted)(std::int64_t kind));

    SystemBus& bus_;
};

}  // namespace tavrel
