#pragma once

#include "cleaning/CleanMode.h"

#include <optional>
#include <string>
#include <vector>

/// The groups of each mode by the names that people type.
namespace tavrel::cli::CategoryNames {

/// What is wrong with the first of `names` that is no group of `mode`: it may be one of another mode, which
/// `command` then has to be told. Nothing when all are.
[[nodiscard]] std::optional<std::string> mistake(const std::vector<std::string>& names, CleanMode mode,
                                                 const std::string& command);

/// All of them, a paragraph for a help text.
[[nodiscard]] std::string help();

}  // namespace tavrel::cli::CategoryNames
