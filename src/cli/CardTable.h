#pragma once

#include "cli/Console.h"
#include "monitoring/Cards.h"

#include <span>
#include <string>
#include <vector>

namespace tavrel::cli {

/// Lays out cards as a table, a line each: title, value, graph, remark. Columns are as wide as their longest
/// text and fit the console; where that is narrow the graphs are left out. Texts are escaped for a terminal.
[[nodiscard]] std::vector<std::string> tableOf(const Console& console, std::span<const Card> cards);

}  // namespace tavrel::cli
