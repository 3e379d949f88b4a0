#include "platform/linux/power/PowerFigures.h"

#include "core/Text.h"
#include "platform/AccessoriesByName.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tavrel::PowerFigures {

namespace {

using Batteries = std::vector<const PowerSupply*>;
using Number = std::optional<double>;

/// What a battery's driver counts: watt-hours or ampere-hours, both in millionths. The two never meet in one
/// sum unless the voltage turns one into the other.
enum class Unit { energy, charge };

struct Content {
    double now = 0;
    double full = 0;
    Number design;
    double drain = 0;  // each hour, 0 where it is not told
};

std::optional<Unit> unitOf(const PowerSupply& battery) {
    const auto tells = [&](const char* now, const char* full) {
        return battery.number(now).value_or(-1) >= 0 && battery.number(full).value_or(0) > 0;
    };
    if (tells("energy_now", "energy_full")) return Unit::energy;
    if (tells("charge_now", "charge_full")) return Unit::charge;
    return std::nullopt;
}

Number positive(Number value) {
    return value && *value > 0 ? value : std::nullopt;
}

Number voltsOf(const PowerSupply& battery) {
    constexpr double microvolts = 1e6;
    Number value = positive(battery.number("voltage_min_design"));
    if (!value) value = positive(battery.number("voltage_now"));
    return value ? std::optional(*value / microvolts) : std::nullopt;
}

Content energyOf(const PowerSupply& battery) {
    // Some drivers count the drain below zero.
    double drain = std::abs(battery.number("power_now").value_or(0));
    if (drain == 0) {
        drain = std::abs(battery.number("current_now").value_or(0)) * voltsOf(battery).value_or(0);
    }
    return {.now = *battery.number("energy_now"),
            .full = *battery.number("energy_full"),
            .design = positive(battery.number("energy_full_design")),
            .drain = drain};
}

Content chargeOf(const PowerSupply& battery, double volts) {
    Number design = positive(battery.number("charge_full_design"));
    if (design) *design *= volts;
    return {.now = *battery.number("charge_now") * volts,
            .full = *battery.number("charge_full") * volts,
            .design = design,
            .drain = std::abs(battery.number("current_now").value_or(0)) * volts};
}

std::optional<Content> contentOf(const PowerSupply& battery, Unit unit) {
    const auto own = unitOf(battery);
    if (own == Unit::energy && unit == Unit::energy) return energyOf(battery);
    if (own != Unit::charge) return std::nullopt;
    const Number volts = unit == Unit::charge ? 1.0 : voltsOf(battery);
    return volts ? std::optional(chargeOf(battery, *volts)) : std::nullopt;
}

/// Ampere-hours add up by themselves only while nothing tells how much each is worth.
Unit commonUnit(const Batteries& batteries) {
    const bool charges = std::all_of(batteries.begin(), batteries.end(),
                                     [](const PowerSupply* each) { return unitOf(*each) == Unit::charge; });
    const bool worth = std::all_of(batteries.begin(), batteries.end(),
                                   [](const PowerSupply* each) { return voltsOf(*each).has_value(); });
    return charges && !(batteries.size() > 1 && worth) ? Unit::charge : Unit::energy;
}

/// Empty unless every battery has one.
std::vector<Content> contentsOf(const Batteries& batteries) {
    const Unit unit = commonUnit(batteries);
    std::vector<Content> contents;
    for (const PowerSupply* each : batteries) {
        const auto content = contentOf(*each, unit);
        if (!content) return {};
        contents.push_back(*content);
    }
    return contents;
}

double sumOf(const std::vector<Content>& contents, double Content::*field) {
    double sum = 0;
    for (const Content& each : contents) sum += each.*field;
    return sum;
}

constexpr double hundred = 100;

/// Multiplied first: 0.29 times 100 would fall just short of 29.
double percentOf(double part, double whole) {
    return std::clamp(hundred * part / whole, 0.0, hundred);
}

/// Cut off, but not for what a sum of voltages times charges has lost by rounding.
std::int64_t wholePercent(double percent) {
    constexpr double roundingError = 1e-9;
    return static_cast<std::int64_t>(percent + roundingError);
}

Number percentOf(const PowerSupply& battery) {
    if (const auto unit = unitOf(battery)) {
        const auto content = contentOf(battery, *unit);
        if (content) return percentOf(content->now, content->full);
    }
    return battery.capacity();
}

/// Of batteries that cannot be added up, the mean of what each says of itself.
Number percentOf(const Batteries& batteries, const std::vector<Content>& contents) {
    if (!contents.empty()) return percentOf(sumOf(contents, &Content::now), sumOf(contents, &Content::full));
    double sum = 0;
    int count = 0;
    for (const PowerSupply* each : batteries) {
        const Number percent = percentOf(*each);
        if (!percent) continue;
        sum += *percent;
        ++count;
    }
    return count > 0 ? std::optional(sum / count) : std::nullopt;
}

std::optional<std::int64_t> healthOf(const std::vector<Content>& contents) {
    double full = 0;
    double design = 0;
    for (const Content& each : contents) {
        if (!each.design) continue;
        full += each.full;
        design += *each.design;
    }
    return design > 0 ? std::optional(wholePercent(percentOf(full, design))) : std::nullopt;
}

std::optional<std::int64_t> minutesOf(const std::vector<Content>& contents) {
    // Right after the plug is drawn the drain is near 0 for a while, and the quotient is fantastic.
    constexpr double longest = 10 * 24 * 60;
    const double drain = sumOf(contents, &Content::drain);
    if (drain <= 0) return std::nullopt;
    const double minutes = sumOf(contents, &Content::now) / drain * 60;
    if (!(minutes >= 1 && minutes <= longest)) return std::nullopt;
    return static_cast<std::int64_t>(minutes);
}

std::optional<std::int64_t> cyclesOf(const Batteries& batteries) {
    constexpr double mostBelievable = 100'000;
    double most = 0;  // which is how drivers say that they do not know
    for (const PowerSupply* each : batteries) most = std::max(most, each->number("cycle_count").value_or(0));
    return most > 0 && most <= mostBelievable ? std::optional(static_cast<std::int64_t>(most)) : std::nullopt;
}

Number temperatureOf(const Batteries& batteries) {
    constexpr double coldest = -50;
    constexpr double hottest = 150;
    Number highest;
    for (const PowerSupply* each : batteries) {
        const Number tenths = each->number("temp");
        if (!tenths) continue;
        const double celsius = *tenths / 10;
        if (celsius > coldest && celsius < hottest) highest = std::max(highest.value_or(coldest), celsius);
    }
    return highest;
}

bool isPlug(const PowerSupply& supply) {
    return !supply.isBattery() && supply.text("type") != "UPS";
}

bool isOnline(const PowerSupply& supply) {
    return isPlug(supply) && supply.number("online").value_or(0) >= 1;
}

/// A battery may drain beside a plug that is too weak, or full: the plug is in all the same. Where no plug
/// says so, batteries tell by not draining; of two in one machine, though, one may wait while the other
/// drains.
bool isPluggedIn(const std::vector<PowerSupply>& supplies, const Batteries& batteries) {
    const auto anyIs = [&](const char* status) {
        return std::any_of(batteries.begin(), batteries.end(),
                           [&](const PowerSupply* each) { return each->text("status") == status; });
    };
    if (anyIs("Charging") || std::any_of(supplies.begin(), supplies.end(), isOnline)) return true;
    if (anyIs("Discharging")) return false;
    return anyIs("Not charging") || (anyIs("Full") && std::none_of(supplies.begin(), supplies.end(), isPlug));
}

std::optional<std::int64_t> adapterWatts(const std::vector<PowerSupply>& supplies) {
    constexpr double microvoltAmperes = 1e12;
    constexpr double strongest = 1000;
    double most = 0;
    for (const PowerSupply& each : supplies) {
        if (!isOnline(each)) continue;
        const double watts = each.number("voltage_max").value_or(0) * each.number("current_max").value_or(0) /
                             microvoltAmperes;
        if (watts >= 1 && watts <= strongest) most = std::max(most, watts);
    }
    return most > 0 ? std::optional(std::llround(most)) : std::nullopt;
}

}  // namespace

std::optional<Sensors::Battery> battery(const std::vector<PowerSupply>& supplies) {
    Batteries batteries;
    for (const PowerSupply& each : supplies) {
        // An empty bay shows a battery that is not present.
        const bool isHere = each.number("present").value_or(1) != 0;
        if (each.isBattery() && isHere) batteries.push_back(&each);
    }
    const std::vector<Content> contents = contentsOf(batteries);
    const Number percent = percentOf(batteries, contents);
    if (!percent) return std::nullopt;
    const bool charging = std::any_of(batteries.begin(), batteries.end(), [](const PowerSupply* each) {
        return each->text("status") == "Charging";
    });
    const bool pluggedIn = isPluggedIn(supplies, batteries);
    return Sensors::Battery{.percent = wholePercent(*percent),
                            .charging = charging,
                            .pluggedIn = pluggedIn,
                            .minutesLeft = pluggedIn ? std::nullopt : minutesOf(contents),
                            .cycles = cyclesOf(batteries),
                            .health = healthOf(contents),
                            .adapterWatts = adapterWatts(supplies),
                            .temperature = temperatureOf(batteries)};
}

std::vector<Sensors::Accessory> accessories(const std::vector<PowerSupply>& supplies) {
    std::vector<Sensors::Accessory> found;
    for (const PowerSupply& each : supplies) {
        if (!each.isBattery()) continue;
        const Number capacity = each.capacity();
        if (!capacity) continue;
        const std::string model = each.text("model_name");
        found.push_back({Text::replaceInvalidUtf8(model.empty() ? each.name : model),
                         static_cast<std::int64_t>(*capacity)});
    }
    return accessoriesByName(found);
}

}  // namespace tavrel::PowerFigures
