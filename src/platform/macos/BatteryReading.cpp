#include "platform/macos/BatteryReading.h"

#include <algorithm>

namespace tavrel::BatteryReading {

namespace {

using Integer = std::optional<std::int64_t>;

bool reads(const Property& property, std::string_view text) {
    return property.text() != nullptr && *property.text() == text;
}

/// Whole percents of a capacity of at least 1. Figures that no battery has give nothing.
Integer percentOf(std::int64_t capacity, std::int64_t part) {
    std::int64_t hundredfold = 0;
    if (__builtin_mul_overflow(part, std::int64_t{100}, &hundredfold)) return std::nullopt;
    return hundredfold / capacity;
}

std::int64_t charge(const Property& source) {
    const std::int64_t current = source["Current Capacity"].integer().value_or(0);
    const std::int64_t most = source["Max Capacity"].integer().value_or(100);
    return most < 1 ? current : percentOf(most, current).value_or(0);
}

Integer minutesLeft(const Property& source) {
    const Integer minutes = source["Time to Empty"].integer();
    return minutes.value_or(0) < 1 ? std::nullopt : minutes;  // -1 while the system estimates
}

Integer health(const Property& controller) {
    const Property& data = controller["BatteryData"];
    Integer full = controller["AppleRawMaxCapacity"].integer();
    if (!full) full = controller["NominalChargeCapacity"].integer();
    if (!full) full = data["NominalChargeCapacity"].integer();
    Integer design = controller["DesignCapacity"].integer();
    if (!design) design = data["DesignCapacity"].integer();
    if (!full || design.value_or(0) < 1) return std::nullopt;
    const Integer percent = percentOf(*design, *full);
    return percent ? Integer(std::min<std::int64_t>(100, *percent)) : std::nullopt;
}

std::optional<double> temperature(const Property& controller) {
    const Integer hundredths = controller["Temperature"].integer();
    return hundredths ? std::optional(static_cast<double>(*hundredths) / 100.0) : std::nullopt;
}

}  // namespace

Property internalSource(const std::vector<Property>& sources) {
    const auto found = std::find_if(sources.begin(), sources.end(), [](const Property& source) {
        return reads(source["Type"], "InternalBattery");
    });
    return found == sources.end() ? Property() : *found;
}

Sensors::Battery battery(const Property& source, const Property& controller, const Property& adapter) {
    Sensors::Battery battery;
    battery.percent = charge(source);
    battery.charging = source["Is Charging"].boolean().value_or(false);
    battery.pluggedIn = reads(source["Power Source State"], "AC Power");
    if (!battery.pluggedIn) battery.minutesLeft = minutesLeft(source);
    battery.cycles = controller["CycleCount"].integer();
    battery.health = health(controller);
    battery.adapterWatts = adapter["Watts"].integer();
    battery.temperature = temperature(controller);
    return battery;
}

}  // namespace tavrel::BatteryReading
