#pragma once

#include "cli/Console.h"
#include "cli/Json.h"
#include "monitoring/MachineFigures.h"
#include "monitoring/StatusTexts.h"

#include <span>
#include <string>
#include <vector>

/// The figures of the machine as a script and as a person at a terminal read them.
namespace tavrel::cli::MachineReport {

/// Every figure under its own name; null where it is not known. Bytes, degrees Celsius, shares from 0 to 1.
[[nodiscard]] Json::Value document(const MachineFigures& figures);

/// A line for each card, with a small graph of its history, and below them the busiest processes, those
/// of a pinned name first.
[[nodiscard]] std::vector<std::string> lines(const Console& console, const MachineFigures& figures,
                                             const MachineWords& words, std::span<const std::string> pinned);

}  // namespace tavrel::cli::MachineReport
