#pragma once

#include "core/FileHandle.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// The sensor chips of a machine as the kernel shows them (sysfs-interface of its hwmon documentation):
/// "class/hwmon/hwmonN" below the root of sysfs, with a file for each figure. N changes from boot to boot, so
/// nothing here goes by it.
namespace tavrel::Hwmon {

struct Chip {
    std::filesystem::path folder;  // resolved: the place of the device
    std::string name;
};

/// In the order of the devices' places. Nothing but the name of each chip is read.
[[nodiscard]] std::vector<Chip> chips(const std::filesystem::path& sysRoot);

/// The N of every "KINDN_input" in a chip's folder, ascending.
[[nodiscard]] std::vector<int> inputs(const std::filesystem::path& folder, std::string_view kind);

/// The file of sensor `number`, for example "fan2_max" of ("fan", 2, "_max").
[[nodiscard]] std::filesystem::path file(const std::filesystem::path& folder, std::string_view kind,
                                         int number, std::string_view suffix);

/// The power state of the device that carries the chip. Asking it wakes nothing; asking a sleeping device for
/// anything else would.
[[nodiscard]] FileHandle powerState(const std::filesystem::path& folder);
[[nodiscard]] bool sleeps(const FileHandle& powerState);

}  // namespace tavrel::Hwmon
