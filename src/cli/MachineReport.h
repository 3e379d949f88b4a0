#pragma once

#include "cli/Console.h"
#include "cli/Json.h"
#include "monitoring/MachineFigures.h"
#include "monitoring/PlatformTexts.h"

#include <span>
#include <string>
#include <vector>

/// The figures of the machine as a JSON document and as lines for a terminal.
namespace tavrel::cli::MachineReport {

/// Returns every figure under its own key; null for an unknown one. Bytes, degrees Celsius, shares from 0
/// to 1.
[[nodiscard]] Json::Value document(const MachineFigures& figures);

/// Returns the table of the status cards, and below it the busiest processes, those with a name of `pinned`
/// first. The lines fit the width of `console`.
[[nodiscard]] std::vector<std::string> lines(const Console& console, const MachineFigures& figures,
                                             const PlatformTexts& texts, std::span<const std::string> pinned);

}  // namespace tavrel::cli::MachineReport
