#include "platform/linux/HwmonFans.h"

#include "core/Files.h"

#include <algorithm>

namespace tavrel {
namespace {

using Path = std::filesystem::path;

std::optional<std::int64_t> figure(const Path& folder, int number, std::string_view suffix) {
    return Hwmon::number(Hwmon::open(Hwmon::file(folder, "fan", number, suffix)));
}

bool asleep(const Path& folder) {
    return Hwmon::sleeps(Hwmon::powerState(folder));
}

}  // namespace

HwmonFans::HwmonFans(const Path& sysRoot) {
    for (const Hwmon::Chip& chip : Hwmon::chips(sysRoot)) {
        for (const int number : Hwmon::inputs(chip.folder, "fan")) fans_.push_back({chip.folder, number});
    }
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
