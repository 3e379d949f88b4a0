#include "platform/linux/power/PowerSupply.h"

#include "core/Files.h"
#include "platform/linux/kernel/Attributes.h"
#include "platform/linux/kernel/KernelText.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace tavrel {

namespace {

// These tell of a driver; whatever else is read of a device beside the machine, the kernel may ask it for.
constexpr const char* ofAll[] = {"type", "scope"};

constexpr const char* ofBatteries[] = {
    "present",     "status",      "capacity",           "capacity_level",  //
    "energy_now",  "energy_full", "energy_full_design", "power_now",       //
    "charge_now",  "charge_full", "charge_full_design", "current_now",     //
    "voltage_now", "cycle_count", "voltage_min_design", "temp",            //
};

constexpr const char* ofPlugs[] = {"online", "voltage_max", "current_max"};

constexpr const char* ofDevices[] = {"model_name", "capacity", "capacity_level"};

struct Level {
    std::string_view name;
    double percent;
};

// "Unknown" is no level.
constexpr Level levels[] = {
    {"Critical", 5}, {"Low", 15}, {"Normal", 55}, {"High", 75}, {"Full", 100},
};

void read(const std::filesystem::path& folder, std::span<const char* const> attributes, PowerSupply& supply) {
    for (const char* attribute : attributes) {
        auto value = Attributes::text(folder / supply.name / attribute);
        if (value) supply.attributes.emplace(attribute, std::move(*value));
    }
}

}  // namespace

std::string PowerSupply::text(std::string_view attribute) const {
    const auto found = attributes.find(attribute);
    return found == attributes.end() ? std::string() : found->second;
}

std::optional<double> PowerSupply::number(std::string_view attribute) const {
    const auto value = KernelText::number<std::int64_t>(text(attribute));
    return value ? std::optional(static_cast<double>(*value)) : std::nullopt;
}

std::optional<double> PowerSupply::capacity() const {
    if (const auto percent = number("capacity")) return std::clamp(*percent, 0.0, 100.0);
    const auto* level = std::find_if(std::begin(levels), std::end(levels),
                                     [&](const Level& each) { return each.name == text("capacity_level"); });
    return level == std::end(levels) ? std::nullopt : std::optional(level->percent);
}

std::vector<PowerSupply> PowerSupply::readAll(const std::filesystem::path& sys, Of owner) {
    const std::filesystem::path folder = sys / "class/power_supply";
    std::vector<PowerSupply> supplies;
    for (const std::string& name : Files::names(folder)) {
        PowerSupply supply{name, {}};
        read(folder, ofAll, supply);
        if ((supply.text("scope") == "Device") != (owner == Of::devices)) continue;
        if (owner == Of::devices) {
            read(folder, ofDevices, supply);
        } else {
            read(folder,
                 supply.isBattery() ? std::span<const char* const>(ofBatteries)
                                    : std::span<const char* const>(ofPlugs),
                 supply);
        }
        supplies.push_back(std::move(supply));
    }
    return supplies;
}

}  // namespace tavrel
