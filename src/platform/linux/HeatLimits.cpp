#include "platform/linux/HeatLimits.h"

#include "core/Files.h"
#include "core/Text.h"
#include "platform/linux/Attributes.h"
#include "platform/linux/KernelText.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view processorChips[] = {"coretemp", "k10temp", "zenpower", "cpu_thermal", "acpitz"};

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

bool isProcessorChip(const fs::path& chip) {
    const auto name = Attributes::text(chip / "name");
    return std::find(std::begin(processorChips), std::end(processorChips), name) != std::end(processorChips);
}

/// The critical mark; where there is none, the mark at which the chip counts as hot.
std::optional<double> limitOf(const fs::path& chip, const std::string& sensor) {
    for (const char* mark : {"_crit", "_max"}) {
        const auto value = Attributes::number(chip / (sensor + mark));
        if (!value) continue;
        const auto limit = static_cast<double>(*value);
        if (limit >= lowestLimit && limit <= highestLimit) return limit;
    }
    return std::nullopt;
}

std::vector<std::string> sensorsOf(const fs::path& chip) {
    constexpr std::string_view input = "_input";
    std::vector<std::string> all;
    std::vector<std::string> ofPackages;  // the hottest core is in them already
    for (std::string name : Files::names(chip)) {
        if (!name.starts_with("temp") || !name.ends_with(input)) continue;
        name.resize(name.size() - input.size());
        const auto label = Attributes::text(chip / (name + "_label"));
        if (label && label->starts_with("Package")) ofPackages.push_back(name);
        all.push_back(std::move(name));
    }
    return ofPackages.empty() ? all : ofPackages;
}

}  // namespace

HeatLimits::HeatLimits(const fs::path& sys) : folder_(sys / "class/hwmon") {
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
    for (const std::string& name : Files::names(folder_)) {
        if (isProcessorChip(folder_ / name)) lookIn(folder_ / name);
    }
}

void HeatLimits::lookIn(const fs::path& chip) {
    for (const std::string& sensor : sensorsOf(chip)) {
        const auto limit = limitOf(chip, sensor);
        if (!limit) continue;
        Sensor found{KernelFile(chip / (sensor + "_input"), KernelFile::Lost::tell), *limit};
        if (found.shareOfLimit()) sensors_.push_back(std::move(found));
    }
}

std::optional<double> HeatLimits::largestShare() {
    std::optional<double> largest;
    for (Sensor& sensor : sensors_) {
        const auto share = sensor.shareOfLimit();
        if (!share) return std::nullopt;
        largest = std::max(largest, share);
    }
    return largest;
}

std::optional<double> HeatLimits::Sensor::shareOfLimit() {
    const auto text = input.read();
    if (!text) return std::nullopt;
    std::string_view words = *text;
    const auto heat = KernelText::number<std::int64_t>(KernelText::takeWord(words));
    if (!heat || static_cast<double>(*heat) > highestHeat) return std::nullopt;
    return static_cast<double>(*heat) / limit;
}

}  // namespace tavrel
