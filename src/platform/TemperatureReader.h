#pragma once

#include <optional>

namespace tavrel {

/// The heat of the processors and of the graphics, in degrees Celsius, each the mean of its sensors.
struct Temperatures {
    std::optional<double> cpu;
    std::optional<double> gpu;

    bool operator==(const Temperatures&) const = default;
};

/// Finds its sensors once, when made; a machine without any has no values.
class TemperatureReader {
  public:
    virtual ~TemperatureReader() = default;
    [[nodiscard]] virtual Temperatures read() = 0;
};

}  // namespace tavrel
