#include "platform/linux/hwmon/HwmonFans.h"

#include "core/Files.h"
#include "platform/linux/kernel/Attributes.h"

#include <algorithm>

namespace tavrel {
namespace {

using Path = std::filesystem::path;

std::optional<std::int64_t> figure(const Path& folder, int number, std::string_view suffix) {
    return Attributes::number(Hwmon::file(folder, "fan", number, suffix));
}

/// Of a graphics card, say; the chips of the board are platform or ACPI devices.
bool isOnPci(const Path& folder) {
    return folder.native().find("/pci") != std::string::npos;
}

bool asleep(const Path& folder) {
    return Hwmon::sleeps(Hwmon::powerState(folder));
}

}  // namespace

HwmonFans::HwmonFans(const Path& sysRoot) {
    for (const Hwmon::Chip& chip : Hwmon::chips(sysRoot)) {
        for (const int number : Hwmon::inputs(chip.folder, "fan")) fans_.push_back({chip.folder, number});
    }
    const auto boardFirst = [](const Entry& fan) { return !isOnPci(fan.folder); };
    std::stable_partition(fans_.begin(), fans_.end(), boardFirst);
    const auto turningFirst = [](const Entry& fan) {
        return !asleep(fan.folder) && figure(fan.folder, fan.number, "_input").value_or(0) > 0;
    };
    std::stable_partition(fans_.begin(), fans_.end(), turningFirst);
}

std::vector<Fan> HwmonFans::read() {
    std::vector<Fan> found;
    for (const auto& [folder, number] : fans_) {
        if (asleep(folder)) continue;
        const auto rpm = figure(folder, number, "_input");
        if (!rpm) continue;
        const auto most = figure(folder, number, "_max");
        found.push_back({static_cast<double>(*rpm), static_cast<double>(most.value_or(0))});
    }
    return found;
}

bool HwmonFans::isControllable() {
    const auto canBeSet = [](const Entry& fan) {
        const auto& [folder, number] = fan;
        if (!Files::exists(Hwmon::file(folder, "pwm", number, "")) ||
            !Files::exists(Hwmon::file(folder, "pwm", number, "_enable")))
            return false;
        if (asleep(folder)) return true;
        const auto least = figure(folder, number, "_min");
        const auto most = figure(folder, number, "_max");
        return !least || !most || *least < *most;
    };
    return !fans_.empty() && std::all_of(fans_.begin(), fans_.end(), canBeSet);
}

}  // namespace tavrel
