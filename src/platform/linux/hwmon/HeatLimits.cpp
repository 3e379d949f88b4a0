#include "platform/linux/hwmon/HeatLimits.h"

#include "platform/linux/hwmon/HeatSources.h"
#include "platform/linux/hwmon/Hwmon.h"
#include "platform/linux/kernel/Attributes.h"

#include <algorithm>
#include <iterator>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

// In thousandths of a degree. Firmware that has no limit to tell is known to give 0, 255 or less than
// nothing.
constexpr double lowestLimit = 30'000;
constexpr double highestLimit = 150'000;
constexpr double highestHeat = 200'000;  // beyond it the chip would be no more

// The limit is where the processor slows itself down to survive. In the last seventh below it fans run at
// their fastest and clocks begin to give way; within a twentieth the two meet at every load.
constexpr double fairShare = 0.85;
constexpr double seriousShare = 0.95;
constexpr double criticalShare = 1;

bool isProcessorChip(const Hwmon::Chip& chip) {
    const auto isIt = [&](const HeatSources::Chip& row) { return chip.name.starts_with(row.name); };
    return isIt(HeatSources::lastResort) ||
           std::any_of(std::begin(HeatSources::processors), std::end(HeatSources::processors), isIt);
}

/// The critical mark; where there is none, the mark at which the chip counts as hot.
std::optional<double> limitOf(const fs::path& chip, int sensor) {
    for (const char* mark : {"_crit", "_max"}) {
        const auto value = Attributes::number(Hwmon::file(chip, "temp", sensor, mark));
        if (!value) continue;
        const auto limit = static_cast<double>(*value);
        if (limit >= lowestLimit && limit <= highestLimit) return limit;
    }
    return std::nullopt;
}

std::vector<int> sensorsOf(const fs::path& chip) {
    std::vector<int> all = Hwmon::inputs(chip, "temp");
    std::vector<int> ofPackages;  // the hottest core is in them already
    for (const int sensor : all) {
        const auto label = Attributes::text(Hwmon::file(chip, "temp", sensor, "_label"));
        if (label && label->starts_with("Package")) ofPackages.push_back(sensor);
    }
    return ofPackages.empty() ? all : ofPackages;
}

}  // namespace

HeatLimits::HeatLimits(const fs::path& sys) : sys_(sys) {
    look();
}

std::optional<Sensors::ThermalState> HeatLimits::state() {
    auto share = largestShare();
    if (!share && !sensors_.empty()) {
        // A driver was loaded anew, say, and the folders have other numbers now.
        look();
        share = largestShare();
    }
    return share ? std::optional(stateAt(*share)) : std::nullopt;
}

Sensors::ThermalState HeatLimits::stateAt(double shareOfLimit) {
    using State = Sensors::ThermalState;
    if (shareOfLimit >= criticalShare) return State::critical;
    if (shareOfLimit >= seriousShare) return State::serious;
    return shareOfLimit >= fairShare ? State::fair : State::nominal;
}

void HeatLimits::look() {
    sensors_.clear();
    for (const Hwmon::Chip& chip : Hwmon::chips(sys_)) {
        if (isProcessorChip(chip)) lookIn(chip.folder);
    }
}

void HeatLimits::lookIn(const fs::path& chip) {
    for (const int sensor : sensorsOf(chip)) {
        const auto limit = limitOf(chip, sensor);
        if (!limit) continue;
        Sensor found{Attributes::open(Hwmon::file(chip, "temp", sensor, "_input")), *limit};
        if (found.shareOfLimit()) sensors_.push_back(std::move(found));
    }
}

std::optional<double> HeatLimits::largestShare() const {
    std::optional<double> largest;
    for (const Sensor& sensor : sensors_) {
        const auto share = sensor.shareOfLimit();
        if (!share) return std::nullopt;
        largest = std::max(largest, share);
    }
    return largest;
}

std::optional<double> HeatLimits::Sensor::shareOfLimit() const {
    const auto heat = Attributes::number(input);
    if (!heat || static_cast<double>(*heat) > highestHeat) return std::nullopt;
    return static_cast<double>(*heat) / limit;
}

}  // namespace tavrel
