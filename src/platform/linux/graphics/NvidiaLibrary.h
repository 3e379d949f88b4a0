#pragma once

#include <optional>
#include <string>

namespace tavrel {

/// The management library of NVIDIA's driver, as far as it is asked.
class NvidiaLibrary {
  public:
    virtual ~NvidiaLibrary() = default;
    /// How busy the device at an address such as "0000:01:00.0" is, 0 to 1. The device must not be asleep: to
    /// ask would wake it.
    [[nodiscard]] virtual std::optional<double> load(const std::string& device) = 0;
    /// Closes every device, so that they may enter a low-power state.
    virtual void release() = 0;
};

}  // namespace tavrel
