#pragma once

#include "platform/FanReader.h"
#include "platform/linux/hwmon/Hwmon.h"

namespace tavrel {

/// Fans from the sensor chips of the kernel, found once, when made. The first stands for all where only one
/// is shown, so those that then turn come before those that stand still, those of the board before those of
/// cards; else in the order of the chips' places and of their numbers there. Fans of a device that sleeps are
/// left alone and have no entry meanwhile.
class HwmonFans final : public FanReader {
  public:
    explicit HwmonFans(const std::filesystem::path& sysRoot = "/sys");

    [[nodiscard]] std::vector<Fan> read() override;
    /// Whether every fan has a "pwmN" and a "pwmN_enable", and where a fan's limits are given, some speed
    /// lies between them. Root alone may write there, so no one's own right to do so counts.
    [[nodiscard]] bool isControllable() override;

  private:
    struct Entry {
        std::filesystem::path folder;
        int number = 0;
    };

    std::vector<Entry> fans_;
};

}  // namespace tavrel
