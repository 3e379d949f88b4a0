#pragma once

#include "cli/Console.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

/// Paths as they are typed.
namespace tavrel::cli::Arguments {

/// Where relative paths count from; empty when that folder is gone, so that no such path means anything.
[[nodiscard]] std::filesystem::path workingFolder();

/// The bytes that a person means by a number with K, M, G or T for powers of 1000, as sizes are printed, or
/// Ki, Mi, Gi, Ti for those of 1024; a B may follow, and case does not count. Nothing for other texts.
[[nodiscard]] std::optional<std::int64_t> bytes(const std::string& text);

/// Whether something stands at `path`, a link counting as itself. Says so when nothing does.
bool exists(const std::string& path, Console& console);

}  // namespace tavrel::cli::Arguments
