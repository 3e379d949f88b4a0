#include "monitoring/StatusTexts.h"

#include "core/ByteCount.h"
#include "core/Decimal.h"
#include "core/Phrase.h"
#include "monitoring/HealthScore.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include <fmt/format.h>

namespace tavrel::StatusTexts {

namespace {

using Text::localized;

constexpr const char* unknown = "—";
constexpr const char* between = " · ";
constexpr double busyFrom = 0.15;    // of all processors
constexpr double nearlyFull = 0.85;  // of the volume
constexpr double coolest = 30;       // degrees, where the meter of heat begins
constexpr double span = 70;          // degrees, up to where it is full
constexpr double heatUnknown = 1.0 / 7;

/// A share as whole percent, never rounded up to more than there is.
std::string percent(double share) {
    constexpr double roundingError = 1e-9;  // 0.29 times 100 is a little less than 29
    return fmt::format("{}", static_cast<int>(share * 100 + roundingError));
}

std::string pressure(std::int64_t level) {
    if (level < 2) return localized("Pressure normal");
    return level < 4 ? localized("Pressure elevated") : localized("Pressure high");
}

std::string thermalWord(Sensors::ThermalState state) {
    switch (state) {
        case Sensors::ThermalState::nominal:
            return localized("Cool");
        case Sensors::ThermalState::fair:
            return localized("Warm");
        case Sensors::ThermalState::serious:
            return localized("Hot");
        case Sensors::ThermalState::critical:
            break;
    }
    return localized("Throttling");
}

MetricCard ofShare(const std::string& title, std::optional<double> share, const std::string& footer) {
    if (!share) return {title, unknown, "", footer};
    return {title, percent(*share), "%", footer};
}

}  // namespace

MetricCard cpu(const MachineFigures& figures) {
    std::string footer;
    if (figures.cpu) footer = (*figures.cpu < busyFrom ? localized("idle") : localized("busy")) + between;
    if (figures.load) footer += phrase("load {}", oneDecimal(*figures.load)) + between;
    footer += counted("{} core", "{} cores", static_cast<unsigned long>(figures.cores));
    return ofShare(localized("CPU"), figures.cpu, footer);
}

MetricCard gpu(const MachineFigures& figures, const MachineWords& words) {
    const auto cores = static_cast<unsigned long>(figures.gpuCores.value_or(0));
    return ofShare(localized("GPU"), figures.gpu,
                   figures.gpuCores ? counted("{} GPU core", "{} GPU cores", cores)
                   : figures.gpu    ? localized(words.graphics)
                                    : localized(words.noGraphics));
}

MetricCard memory(const MachineFigures& figures) {
    std::string footer = pressure(figures.memory.pressure.value_or(0));
    if (const auto swap = figures.memory.swap.value_or(0); swap != 0)
        footer += between + phrase("swap {}", byteCount(swap));
    const bool known = figures.memory.used && figures.memory.total;
    return ofShare(localized("Memory"), known ? std::optional(usedShare(figures.memory)) : std::nullopt,
                   footer);
}

MetricCard disk(const MachineFigures& figures) {
    return {
        .title = localized("Disk"),
        .value = figures.disk.available ? byteCount(*figures.disk.available) : unknown,
        .unit = figures.disk.available ? localized("free") : "",
        .footer = phrase("Read {} · Write {}", rate(figures.diskRead), rate(figures.diskWrite)),
    };
}

MetricCard network(const MachineFigures& figures) {
    return {
        .title = localized("Network"),
        .value = "↓ " + rate(figures.download),
        .footer = figures.connection ? "↑ " + rate(figures.upload) : localized("Offline"),
        .chip = figures.connection.value_or(""),
    };
}

MetricCard thermal(const MachineFigures& figures) {
    MetricCard card = {.title = localized("Thermal"), .value = unknown};
    // That a machine is held back tells more than any temperature.
    const bool isThrottling = figures.thermalState == Sensors::ThermalState::critical;
    if (figures.thermalState && (isThrottling || !figures.cpuTemp)) {
        card.value = thermalWord(*figures.thermalState);
    } else if (figures.cpuTemp) {
        card.value = fmt::format("{}", std::lround(*figures.cpuTemp));
        card.unit = "°C";
    }
    card.footer = figures.gpuTemp ? phrase("GPU {}", temp(*figures.gpuTemp)) : localized("Thermal status");
    return card;
}

double heatShare(const MachineFigures& figures) {
    if (!figures.cpuTemp) return heatUnknown;
    return std::clamp((*figures.cpuTemp - coolest) / span, 0.0, 1.0);
}

bool isDiskNearlyFull(const MachineFigures& figures) {
    return usedShare(figures.disk) > nearlyFull;
}

std::string grade(int healthScore) {
    switch (healthGrade(healthScore)) {
        case HealthGrade::excellent:
            return localized("Excellent");
        case HealthGrade::good:
            return localized("Good");
        case HealthGrade::needsCare:
            break;
    }
    return localized("Needs care");
}

std::string machine(const MachineFigures& figures) {
    if (!figures.memory.total) return figures.chip;
    return phrase("{} · {} of memory", figures.chip, byteCount(*figures.memory.total));
}

std::string batteryState(const Sensors::Battery& battery) {
    if (battery.pluggedIn) return battery.charging ? localized("Charging") : localized("Plugged in");
    if (!battery.minutesLeft) return localized("On battery");
    const auto hours = *battery.minutesLeft / 60;
    const auto minutes = *battery.minutesLeft % 60;
    return hours == 0 ? phrase("{}m left", minutes) : phrase("{}h {}m left", hours, minutes);
}

std::string batteryWear(const Sensors::Battery& battery) {
    std::string text;
    if (battery.health) text = phrase("{}% health", *battery.health);
    if (battery.cycles) {
        if (!text.empty()) text += between;
        text += counted("{} cycle", "{} cycles", static_cast<unsigned long>(*battery.cycles));
    }
    return text;
}

FanCard fans(const MachineFigures& figures, const MachineWords& words) {
    FanCard card = {
        .title = figures.fans.size() < 2 ? localized("Fan") : localized("Fans"),
        .share = phrase("Load {}%", std::lround(fanLoad(figures.fans) * 100)),
        .speed = unknown,
    };
    if (figures.fans.empty()) {
        card.detail = localized(words.noFan);
        return card;
    }
    card.speed = fmt::format("{}", static_cast<std::int64_t>(figures.fans.front().rpm));
    card.unit = localized("RPM");
    if (!figures.fanControlAvailable) card.detail = localized(words.fanUnavailable);
    return card;
}

std::string temp(double celsius) {
    return fmt::format("{}°C", std::lround(celsius));
}

std::string rate(std::optional<double> bytes) {
    if (!bytes) return unknown;
    if (*bytes < 1) return localized("0 KB/s");
    return phrase("{}/s", byteCount(static_cast<std::int64_t>(*bytes)));
}

std::string accessorySymbol(const std::string& name) {
    constexpr std::array<std::pair<std::string_view, const char*>, 6> symbols = {{
        {"airpods", "airpods"},
        {"buds", "earbuds"},
        {"headphone", "headphones"},
        {"keyboard", "keyboard"},
        {"trackpad", "rectangle.and.hand.point.up.left"},
        {"mouse", "magicmouse"},
    }};
    const std::string lower = Text::lowercased(name);
    for (const auto& [word, symbol] : symbols) {
        if (lower.find(word) == std::string::npos) continue;
        const bool pro = word == "airpods" && lower.find("pro") != std::string::npos;
        return pro ? "airpodspro" : symbol;
    }
    return "battery.75percent";
}

}  // namespace tavrel::StatusTexts
