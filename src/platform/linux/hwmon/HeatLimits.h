#pragma once

#include "core/FileHandle.h"
#include "platform/Sensors.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace tavrel {

/// How near the processors are to the heat at which they hold themselves back, from the limits beside their
/// sensors in /sys/class/hwmon (the kernel's documentation of its sysfs interface). Sensors of disks are
/// never touched: to ask some of them wakes the disk.
class HeatLimits {
  public:
    /// Looks for the sensors.
    explicit HeatLimits(const std::filesystem::path& sys);

    /// The state by the sensor nearest to its limit; nullopt if no sensor has a limit.
    [[nodiscard]] std::optional<Sensors::ThermalState> state();

    [[nodiscard]] static Sensors::ThermalState stateAt(double shareOfLimit);

  private:
    struct Sensor {
        FileHandle input;
        double limit = 0;  // thousandths of a degree, as the input

        [[nodiscard]] std::optional<double> shareOfLimit() const;
    };

    void look();
    void lookIn(const std::filesystem::path& chip);
    /// Nothing as soon as one sensor fails.
    [[nodiscard]] std::optional<double> largestShare() const;

    std::filesystem::path sys_;
    std::vector<Sensor> sensors_;
};

}  // namespace tavrel
