#pragma once

#include "platform/Sensors.h"
#include "platform/linux/figures/CpuFigures.h"
#include "platform/linux/figures/DiskFigures.h"
#include "platform/linux/figures/NetworkFigures.h"
#include "platform/linux/graphics/GraphicsLoad.h"
#include "platform/linux/graphics/NvidiaLibrary.h"
#include "platform/linux/hwmon/HeatLimits.h"
#include "platform/linux/kernel/KernelFile.h"
#include "platform/linux/kernel/RealDevices.h"
#include "platform/linux/kernel/SteadyIdle.h"
#include "platform/linux/power/SystemBus.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// The figures of a Linux machine: from the kernel's files, kept open where each tick reads them, and from
/// the services of the system where they run and know better.
class LinuxSensors final : public Sensors {
  public:
    /// Where the figures come from. An empty bus stands for a machine without one.
    struct Roots {
        std::filesystem::path proc = "/proc";
        std::filesystem::path sys = "/sys";
        std::filesystem::path home;
        std::string bus = SystemBus::systemAddress();
    };

    /// `nvidia` may be missing.
    LinuxSensors(Roots roots, std::unique_ptr<NvidiaLibrary> nvidia,
                 SystemBus::Now now = std::chrono::steady_clock::now);

    [[nodiscard]] std::vector<CPUTicks> cpuTicks() override;
    [[nodiscard]] Memory memory() override;
    [[nodiscard]] std::optional<double> gpuUsage() override { return graphics_.busiest(); }
    /// nullopt: Linux reports it for no device.
    [[nodiscard]] std::optional<std::int64_t> gpuCores() override { return std::nullopt; }
    [[nodiscard]] std::string chipName() override;
    [[nodiscard]] std::int64_t activeProcessors() override;
    [[nodiscard]] std::optional<DiskIO> diskIO() override;
    [[nodiscard]] DiskSpace diskSpace() const override;
    [[nodiscard]] std::optional<NetworkBytes> networkBytes() override;
    [[nodiscard]] std::optional<std::string> connectionKind() override;
    [[nodiscard]] std::optional<double> loadAverage() override;
    [[nodiscard]] std::optional<Battery> battery() override;
    [[nodiscard]] std::vector<Accessory> accessories() const override;
    [[nodiscard]] std::vector<Accessory> bluetoothBatteries() const override;
    [[nodiscard]] std::optional<ThermalState> thermalState() override { return heat_.state(); }

  private:
    [[nodiscard]] std::optional<std::string> defaultInterface() const;

    Roots roots_;
    SystemBus bus_;

    KernelFile stat_;
    KernelFile meminfo_;
    KernelFile pressure_;
    KernelFile diskstats_;
    KernelFile netDev_;
    KernelFile loadavg_;

    // Kept for their memory, and what has to be known of the last reading.
    std::vector<CpuFigures::Row> processors_;
    std::vector<DiskFigures::Row> disks_;
    std::vector<NetworkFigures::Row> interfaces_;
    SteadyIdle idle_;
    RealDevices realDisks_;
    RealDevices realInterfaces_;
    bool hasRealInterfaces_ = false;

    GraphicsLoad graphics_;
    HeatLimits heat_;
};

/// The figures of this machine, the disk's being those of the volume with `home`.
[[nodiscard]] std::unique_ptr<Sensors> linuxSensors(const std::filesystem::path& home);

}  // namespace tavrel
