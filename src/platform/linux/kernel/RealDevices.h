#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

/// Distinguishes hardware from virtual devices of the kernel: a folder of sysfs such as /sys/block or
/// /sys/class/net, where only hardware has a "device". The answers are kept, so that a tick with the names of
/// the last one asks the disk nothing.
class RealDevices {
  public:
    explicit RealDevices(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// `row` is where the name stands in its table.
    [[nodiscard]] bool isReal(std::size_t row, std::string_view name);

  private:
    struct Answer {
        std::string name;
        bool real = false;
    };

    std::filesystem::path folder_;
    std::vector<Answer> answers_;
};

}  // namespace tavrel
