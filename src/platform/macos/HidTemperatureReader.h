#pragma once

#include "platform/TemperatureReader.h"
#include "platform/macos/HidTemperatureSensors.h"

#include <cstdint>
#include <vector>

namespace tavrel {

/// The mean heat of a Mac's processor and graphics dies. Sensors are assigned by
/// their names, once.
class HidTemperatureReader final : public TemperatureReader {
  public:
    /// `sensors` outlives this object.
    explicit HidTemperatureReader(HidTemperatureSensors& sensors);

    [[nodiscard]] Temperatures read() override;

  private:
    [[nodiscard]] std::optional<double> mean(const std::vector<std::size_t>& indices);

    HidTemperatureSensors& sensors_;
    std::vector<std::size_t> cpu_;
    std::vector<std::size_t> gpu_;
};

}  // namespace tavrel
