#pragma once

#include "platform/FanReader.h"
#include "platform/ProcessSource.h"
#include "platform/Sensors.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// Everything that is known of the running machine at one moment. A figure that the machine does not give has
/// no value.
struct MachineFigures {
    std::optional<double> cpu;  // the share of all processors that is busy, 0 to 1
    std::vector<double> cpuHistory;
    std::optional<double> gpu;  // 0 to 1
    std::vector<double> gpuHistory;
    std::optional<double> cpuTemp;  // degrees Celsius
    std::optional<double> gpuTemp;
    std::optional<Sensors::ThermalState> thermalState;
    Sensors::Memory memory = {.used = 0, .total = 1, .swap = 0, .pressure = 1};
    std::vector<double> memoryHistory;  // used of total
    Sensors::DiskSpace disk;
    std::optional<double> diskRead;  // bytes a second
    std::optional<double> diskWrite;
    std::optional<double> download;
    std::optional<double> upload;
    std::vector<double> networkHistory;  // of `download`
    std::optional<std::string> connection;
    std::optional<Sensors::Battery> battery;
    std::vector<Sensors::Accessory> accessories;  // input devices, then others
    std::vector<Fan> fans;
    bool fanControlAvailable = false;
    std::optional<double> load;
    std::vector<ProcessInfo> processes;

    std::int64_t cores = 0;
    std::optional<std::int64_t> gpuCores;
    std::string chip;
};

/// The used part of the memory, 0 to 1; 0 where it is not known.
[[nodiscard]] double usedShare(const Sensors::Memory& memory);
/// The used part of the volume, 0 to 1; 0 where its size is not known.
[[nodiscard]] double usedShare(const Sensors::DiskSpace& disk);
/// How fast the first fan runs of what it can, 0 and up; it stands for all. 0 where that is not known.
[[nodiscard]] double fanLoad(const std::vector<Fan>& fans);

}  // namespace tavrel
