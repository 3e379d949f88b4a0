#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// The temperature sensors among the event services of a Mac: usage page 0xFF00, usage 5, those without a
/// product name left out. A system that lacks any of the calls for them has no sensors.
class HidTemperatureSensors {
  public:
    virtual ~HidTemperatureSensors() = default;

    /// The product names, in the system's order, which is the order of the indices below. Found once.
    [[nodiscard]] virtual const std::vector<std::string>& names() const = 0;
    /// Degrees Celsius: the level field 0xF0000 of an event of type 15. Nothing where the sensor has no
    /// event.
    [[nodiscard]] virtual std::optional<double> level(std::size_t index) = 0;
};

}  // namespace tavrel
