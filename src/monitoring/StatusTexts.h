#pragma once

#include "monitoring/MachineFigures.h"
#include "monitoring/MachineWords.h"

#include <string>

/// What the figures of the machine are called and how they read, in the user's language: the one wording of
/// window, panel and command line. A figure that is not known reads "—".
namespace tavrel::StatusTexts {

/// One card: a large value with its unit, a line below, and now and then a word beside the title.
struct MetricCard {
    std::string title;
    std::string value;
    std::string unit;
    std::string footer;
    std::string chip;

    bool operator==(const MetricCard&) const = default;
};

[[nodiscard]] MetricCard cpu(const MachineFigures& figures);
[[nodiscard]] MetricCard gpu(const MachineFigures& figures, const MachineWords& words);
[[nodiscard]] MetricCard memory(const MachineFigures& figures);
[[nodiscard]] MetricCard disk(const MachineFigures& figures);
[[nodiscard]] MetricCard network(const MachineFigures& figures);
[[nodiscard]] MetricCard thermal(const MachineFigures& figures);

/// How far the meter of the thermal card stands, 0 to 1.
[[nodiscard]] double heatShare(const MachineFigures& figures);
/// Whether the disk is so full that its meter warns.
[[nodiscard]] bool isDiskNearlyFull(const MachineFigures& figures);

/// "Excellent", "Good" or "Needs care".
[[nodiscard]] std::string grade(int healthScore);

/// The chip, and how much memory there is.
[[nodiscard]] std::string machine(const MachineFigures& figures);

/// "Charging", "Plugged in", the time left, or "On battery".
[[nodiscard]] std::string batteryState(const Sensors::Battery& battery);
/// Health and cycles; empty where neither is known.
[[nodiscard]] std::string batteryWear(const Sensors::Battery& battery);

/// The first fan stands for all of them.
struct FanCard {
    std::string title;
    std::string share;  // of the fan's highest speed
    std::string speed;
    std::string unit;
    std::string detail;

    bool operator==(const FanCard&) const = default;
};
[[nodiscard]] FanCard fans(const MachineFigures& figures, const MachineWords& words);

/// Rounded, with its unit: "54°C".
[[nodiscard]] std::string temp(double celsius);
/// Bytes a second.
[[nodiscard]] std::string rate(std::optional<double> bytes);

/// The symbol of a device beside the machine, by the words in its name.
[[nodiscard]] std::string accessorySymbol(const std::string& name);

}  // namespace tavrel::StatusTexts
