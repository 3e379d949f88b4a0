#pragma once

#include "platform/Sensors.h"
#include "platform/Shell.h"
#include "platform/macos/MachineCalls.h"

#include <filesystem>

namespace tavrel {

/// The figures of a Mac. Every reading is made anew, the chip's name apart, which is asked for once.
class MacSensors final : public Sensors {
  public:
    /// `calls` and `shell` outlive this object; `home` lies on the volume whose space is reported.
    MacSensors(const MachineCalls& calls, Shell& shell, std::filesystem::path home)
        : calls_(calls), shell_(shell), home_(std::move(home)) {}

    [[nodiscard]] std::vector<CPUTicks> cpuTicks() override;
    [[nodiscard]] Memory memory() override;
    [[nodiscard]] std::optional<double> gpuUsage() override;
    [[nodiscard]] std::optional<std::int64_t> gpuCores() override;
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
    [[nodiscard]] std::optional<ThermalState> thermalState() override;

  private:
    const MachineCalls& calls_;
    Shell& shell_;
    std::filesystem::path home_;
    std::optional<std::string> chipName_;
};

}  // namespace tavrel
