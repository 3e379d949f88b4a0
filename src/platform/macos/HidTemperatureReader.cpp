#include "platform/macos/HidTemperatureReader.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tavrel {

namespace {

constexpr std::string_view gpuName = "GPU";
constexpr std::array<std::string_view, 5> cpuNames{"tdie", "pACC", "eACC", "CPU", "SOC MTR"};

// A sensor that is not connected shows a figure that no running die has.
constexpr double coldest = 5.0;
constexpr double hottest = 130.0;

bool holds(std::string_view name, std::string_view part) {
    return name.find(part) != std::string_view::npos;
}

bool isCpu(std::string_view name) {
    return std::any_of(cpuNames.begin(), cpuNames.end(),
                       [name](std::string_view part) { return holds(name, part); });
}

}  // namespace

HidTemperatureReader::HidTemperatureReader(HidTemperatureSensors& sensors) : sensors_(sensors) {
    const auto& names = sensors.names();
    for (std::size_t index = 0; index < names.size(); ++index) {
        if (holds(names[index], gpuName)) {
            gpu_.push_back(index);
        } else if (isCpu(names[index])) {
            cpu_.push_back(index);
        }
    }
}

Temperatures HidTemperatureReader::read() {
    return {mean(cpu_), mean(gpu_)};
}

std::optional<double> HidTemperatureReader::mean(const std::vector<std::size_t>& indices) {
    double sum = 0;
    std::size_t count = 0;
    for (const std::size_t index : indices) {
        const auto level = sensors_.level(index);
        if (!level || !(*level > coldest && *level < hottest)) continue;
        sum += *level;
        ++count;
    }
    return count == 0 ? std::nullopt : std::optional(sum / static_cast<double>(count));
}

}  // namespace tavrel
