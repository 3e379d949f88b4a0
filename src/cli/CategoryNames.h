#pragma once

#include "cleaning/CleanMode.h"

#include <optional>
#include <string>
#include <vector>

/// The groups of each mode by the names that people type.
namespace tavrel::cli::CategoryNames {

/// The error text for the first of `names` that is no group of `mode`; if it is a group of another mode, the
/// text names the option of `command` for it. nullopt if all are groups of `mode`.
[[nodiscard]] std::optional<std::string> mistake(const std::vector<std::string>& names, CleanMode mode,
                                                 const std::string& command);

/// All of them, a paragraph for a help text.
[[nodiscard]] std::string help();

}  // namespace tavrel::cli::CategoryNames
