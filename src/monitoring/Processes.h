#pragma once

#include "monitoring/ProcessNotes.h"
#include "platform/ProcessSource.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel {

enum class ProcessSort { cpu, memory, energy };

/// The processes to show: highest figure first, equal ones as they came, those with a pinned name before the
/// others, and of all that the first 12.
[[nodiscard]] std::vector<ProcessInfo> processRows(std::vector<ProcessInfo> processes, ProcessSort sort,
                                                   std::span<const std::string> pinned);

/// A sentence on what a process is there for; nothing for an unknown one.
[[nodiscard]] std::optional<std::string> explanation(ProcessNotes notes, std::string_view name);

}  // namespace tavrel
