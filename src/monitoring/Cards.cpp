#include "monitoring/Cards.h"

#include "core/ByteCount.h"
#include "core/Decimal.h"
#include "core/Phrase.h"
#include "monitoring/HealthScore.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string_view>
#include <utility>

#include <fmt/format.h>

namespace tavrel {

namespace {

using Kind = Card::Kind;
using State = Card::State;
using Text::localized;

constexpr const char* unknown = "—";
constexpr const char* between = " · ";
constexpr double busyFrom = 0.15;         // of all processors
constexpr double nearlyFull = 0.85;       // of the volume
constexpr std::int64_t nearlyEmpty = 20;  // percent of the battery
constexpr double coolest = 30;            // degrees, where the meter of heat begins
constexpr double span = 70;               // degrees, up to where it is full
constexpr double heatUnknown = 1.0 / 7;

/// A share as whole percent, never rounded up to more than there is.
std::string percent(double share) {
    constexpr double roundingError = 1e-9;  // 0.29 times 100 is a little less than 29
    return fmt::format("{}", static_cast<int>(share * 100 + roundingError));
}

std::string temp(double celsius) {
    return fmt::format("{}°C", std::lround(celsius));
}

/// Bytes a second.
std::string rate(std::optional<double> bytes) {
    if (!bytes) return unknown;
    if (*bytes < 1) return localized("0 KB/s");
    return phrase("{}/s", byteCount(static_cast<std::int64_t>(*bytes)));
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

void setShare(Card& card, std::optional<double> share) {
    card.value = share ? percent(*share) : unknown;
    if (share) card.unit = "%";
}

std::pair<std::string, State> gradeOf(HealthGrade grade) {
    switch (grade) {
        case HealthGrade::excellent:
            return {localized("Excellent"), State::normal};
        case HealthGrade::good:
            return {localized("Good"), State::elevated};
        case HealthGrade::needsCare:
            break;
    }
    return {localized("Needs care"), State::critical};
}

Card health(const MachineFigures& figures) {
    const int score = healthScore(figures);
    const auto [grade, state] = gradeOf(healthGrade(score));
    const auto& memory = figures.memory.total;
    return {
        .kind = Kind::health,
        .symbol = "sun.max",
        .title = localized("Health"),
        .chip = figures.chip,
        .value = fmt::format("{}", score),
        .unit = grade,
        .footer = memory ? phrase("{} · {} of memory", figures.chip, byteCount(*memory)) : figures.chip,
        .state = state,
        .graph = score / 100.0,
    };
}

Card cpu(const MachineFigures& figures) {
    Card card = {.kind = Kind::cpu, .symbol = "cpu", .title = localized("CPU"), .graph = figures.cpuHistory};
    setShare(card, figures.cpu);
    if (figures.cpu)
        card.footer = (*figures.cpu < busyFrom ? localized("idle") : localized("busy")) + between;
    if (figures.load) card.footer += phrase("load {}", oneDecimal(*figures.load)) + between;
    card.footer += counted("{} core", "{} cores", static_cast<unsigned long>(figures.cores));
    return card;
}

Card gpu(const MachineFigures& figures, const PlatformTexts& texts) {
    const auto cores = static_cast<unsigned long>(figures.gpuCores.value_or(0));
    Card card = {
        .kind = Kind::gpu,
        .symbol = "rectangle.3.group",
        .title = localized("GPU"),
        .footer = figures.gpuCores ? counted("{} GPU core", "{} GPU cores", cores)
                  : figures.gpu    ? localized(texts.graphics)
                                   : localized(texts.noGraphics),
        .graph = figures.gpuHistory,
    };
    setShare(card, figures.gpu);
    return card;
}

Card memory(const MachineFigures& figures) {
    Card card = {
        .kind = Kind::memory,
        .symbol = "memorychip",
        .title = localized("Memory"),
        .footer = pressure(figures.memory.pressure.value_or(0)),
        .graph = figures.memoryHistory,
    };
    if (const auto swap = figures.memory.swap.value_or(0); swap != 0)
        card.footer += between + phrase("swap {}", byteCount(swap));
    const bool known = figures.memory.used && figures.memory.total;
    setShare(card, known ? std::optional(usedShare(figures.memory)) : std::nullopt);
    return card;
}

Card disk(const MachineFigures& figures) {
    const double used = usedShare(figures.disk);
    return {
        .kind = Kind::disk,
        .symbol = "internaldrive",
        .title = localized("Disk"),
        .value = figures.disk.available ? byteCount(*figures.disk.available) : unknown,
        .unit = figures.disk.available ? localized("free") : "",
        .footer = phrase("Read {} · Write {}", rate(figures.diskRead), rate(figures.diskWrite)),
        .state = used > nearlyFull ? State::elevated : State::normal,
        .graph = used,
    };
}

/// Each value relative to the highest one; a byte a second or less everywhere stays low.
std::vector<double> ofPeak(std::vector<double> history) {
    double peak = 1;
    for (const double value : history) peak = std::max(peak, value);
    for (double& value : history) value /= peak;
    return history;
}

Card network(const MachineFigures& figures) {
    return {
        .kind = Kind::network,
        .symbol = "network",
        .title = localized("Network"),
        .chip = figures.connection.value_or(""),
        .value = "↓ " + rate(figures.download),
        .footer = figures.connection ? "↑ " + rate(figures.upload) : localized("Offline"),
        .graph = ofPeak(figures.networkHistory),
    };
}

Card thermal(const MachineFigures& figures) {
    const auto& heat = figures.cpuTemp;
    Card card = {
        .kind = Kind::thermal,
        .symbol = "thermometer.medium",
        .title = localized("Thermal"),
        .value = unknown,
        .footer = figures.gpuTemp ? phrase("GPU {}", temp(*figures.gpuTemp)) : localized("Thermal status"),
        .graph = heat ? std::clamp((*heat - coolest) / span, 0.0, 1.0) : heatUnknown,
    };
    // That a machine is held back says more than any temperature.
    const bool isThrottling = figures.thermalState == Sensors::ThermalState::critical;
    if (figures.thermalState && (isThrottling || !heat)) {
        card.value = thermalWord(*figures.thermalState);
    } else if (heat) {
        card.value = fmt::format("{}", std::lround(*heat));
        card.unit = "°C";
    }
    return card;
}

std::string batteryState(const Sensors::Battery& battery) {
    if (battery.pluggedIn) return battery.charging ? localized("Charging") : localized("Plugged in");
    if (!battery.minutesLeft) return localized("On battery");
    const auto hours = *battery.minutesLeft / 60;
    const auto minutes = *battery.minutesLeft % 60;
    return hours == 0 ? phrase("{}m left", minutes) : phrase("{}h {}m left", hours, minutes);
}

/// Health and cycles; empty where neither is known.
std::string batteryWear(const Sensors::Battery& battery) {
    std::string text;
    if (battery.health) text = phrase("{}% health", *battery.health);
    if (battery.cycles) {
        if (!text.empty()) text += between;
        text += counted("{} cycle", "{} cycles", static_cast<unsigned long>(*battery.cycles));
    }
    return text;
}

/// The value and the meter of a battery that is charged to `percent`.
Card charged(Kind kind, std::int64_t percent) {
    return {.kind = kind,
            .value = fmt::format("{}", percent),
            .unit = "%",
            .graph = static_cast<double>(percent) / 100};
}

Card battery(const Sensors::Battery& battery) {
    Card card = charged(Kind::battery, battery.percent);
    card.symbol = battery.pluggedIn && battery.charging ? "battery.100percent.bolt" : "battery.75percent";
    card.title = localized("Battery");
    card.chip = batteryState(battery);
    card.footer = batteryWear(battery);
    if (battery.percent < nearlyEmpty) card.state = State::critical;
    return card;
}

/// By the words in the name of the device.
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

Card accessory(const Sensors::Accessory& accessory) {
    Card card = charged(Kind::accessory, accessory.percent);
    card.symbol = accessorySymbol(accessory.name);
    card.title = accessory.name;
    return card;
}

/// The first fan stands for all of them.
Card fans(const MachineFigures& figures, const PlatformTexts& texts) {
    const double load = fanLoad(figures.fans);
    Card card = {
        .kind = Kind::fans,
        .symbol = "fan.fill",
        .title = figures.fans.size() < 2 ? localized("Fan") : localized("Fans"),
        .value = unknown,
        .footer = phrase("Load {}%", std::lround(load * 100)),
        .graph = load,
    };
    if (figures.fans.empty()) {
        card.detail = localized(texts.noFan);
        return card;
    }
    card.value = fmt::format("{}", static_cast<std::int64_t>(figures.fans.front().rpm));
    card.unit = localized("RPM");
    if (!figures.fanControlAvailable) card.detail = localized(texts.fanUnavailable);
    return card;
}

}  // namespace

std::vector<Card> statusCards(const MachineFigures& figures, const PlatformTexts& texts) {
    std::vector<Card> cards = {health(figures), cpu(figures),     gpu(figures, texts), memory(figures),
                               disk(figures),   network(figures), thermal(figures)};
    if (figures.battery) cards.push_back(battery(*figures.battery));
    for (const Sensors::Accessory& each : figures.accessories) cards.push_back(accessory(each));
    cards.push_back(fans(figures, texts));
    return cards;
}

}  // namespace tavrel
