#pragma once

#include "core/FileHandle.h"
#include "platform/TemperatureReader.h"
#include "platform/linux/hwmon/HeatSources.h"

#include <filesystem>
#include <vector>

namespace tavrel {

/// Temperatures from the sensor chips of the kernel, known by the chips' names and the sensors' labels; where
/// no chip knows the processors' heat, from the thermal zones. Files stay open between readings. A sensor
/// that fails is looked for anew at the next reading, but rarely, since some never answer.
///
/// A graphics device that sleeps is left asleep and has no value. Disks are not asked at all: that would keep
/// them from resting.
class HwmonTemperatures final : public TemperatureReader {
  public:
    explicit HwmonTemperatures(std::filesystem::path sysRoot = "/sys");

    [[nodiscard]] Temperatures read() override;

  private:
    struct Source {
        std::filesystem::path folder;
        HeatSources::Labels labels;
        FileHandle powerState;  // empty where the device has none
        std::vector<FileHandle> sensors;
        bool found = false;  // whether its sensors have been looked for; not while it sleeps
    };

    void findSources();
    /// Whether it may be asked; its sensors are then at hand.
    [[nodiscard]] static bool awake(Source& source);
    [[nodiscard]] std::optional<double> mean(std::vector<Source>& sources);

    std::filesystem::path sysRoot_;
    std::vector<Source> cpu_;
    std::vector<Source> gpu_;
    bool lost_ = false;          // a sensor failed since the sources were found
    int readingsUntilFind_ = 0;  // before they may be looked for again
};

}  // namespace tavrel
