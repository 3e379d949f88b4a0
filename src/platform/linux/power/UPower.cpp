#include "platform/linux/power/UPower.h"

#include "platform/AccessoriesByName.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tavrel {

namespace {

constexpr const char* service = "org.freedesktop.UPower";
constexpr const char* deviceInterface = "org.freedesktop.UPower.Device";
constexpr const char* allBatteries = "/org/freedesktop/UPower/devices/DisplayDevice";

/// More devices than anybody has on a desk are not asked one by one.
constexpr std::size_t mostDevices = 32;

/// Its kinds of devices, as far as they are told apart here.
enum Kind : std::int64_t {
    linePower = 1,
    battery = 2,
    ups = 3,
    monitor = 4,
    mouse = 5,
    keyboard = 6,
    tablet = 10,
    gamingInput = 12,
    pen = 13,
    touchpad = 14,
};

bool isInput(std::int64_t kind) {
    return kind == mouse || kind == keyboard || kind == tablet || kind == gamingInput || kind == pen ||
           kind == touchpad;
}

/// Headphones, phones, remote controls, watches and what there will be.
bool isOtherDevice(std::int64_t kind) {
    return kind != linePower && kind != battery && kind != ups && kind != monitor && !isInput(kind);
}

std::string nameOf(const BusProperties& device) {
    const std::string model = valueOf<std::string>(device, "Model").value_or("");
    return model.empty() ? valueOf<std::string>(device, "Vendor").value_or("") : model;
}

}  // namespace

std::optional<std::int64_t> UPower::minutesLeft() {
    const auto device = bus_.properties({service, allBatteries, deviceInterface});
    if (!device || valueOf<std::int64_t>(*device, "Type") != battery) return std::nullopt;
    const std::int64_t minutes = valueOf<std::int64_t>(*device, "TimeToEmpty").value_or(0) / 60;
    return minutes > 0 ? std::optional(minutes) : std::nullopt;
}

std::optional<std::vector<Sensors::Accessory>> UPower::inputDevices() {
    return devices(isInput);
}

std::optional<std::vector<Sensors::Accessory>> UPower::otherDevices() {
    return devices(isOtherDevice);
}

std::optional<std::vector<Sensors::Accessory>> UPower::devices(bool (*isWanted)(std::int64_t kind)) {
    auto paths = bus_.objects({service, "/org/freedesktop/UPower", service}, "EnumerateDevices");
    if (!paths) return std::nullopt;
    paths->resize(std::min(paths->size(), mostDevices));
    std::vector<Sensors::Accessory> found;
    for (const std::string& path : *paths) {
        const auto device = bus_.properties({service, path, deviceInterface});
        if (!device || !isWanted(valueOf<std::int64_t>(*device, "Type").value_or(linePower))) continue;
        const std::string name = nameOf(*device);
        const double percent = valueOf<double>(*device, "Percentage").value_or(-1);
        const bool isPresent = valueOf<bool>(*device, "IsPresent").value_or(true);
        if (name.empty() || !isPresent || !(percent >= 0)) continue;
        found.push_back({name, std::llround(std::min(percent, 100.0))});
    }
    return accessoriesByName(found);
}

}  // namespace tavrel
