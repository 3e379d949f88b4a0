#pragma once

#include "cli/Console.h"

#include <cstddef>
#include <filesystem>
#include <string>

/// A tree kept in a file, and held against that file on another day. Both give the exit status.
namespace tavrel::cli::TreeExport {

using Path = std::filesystem::path;

/// Writes what everything below `root` occupies to `file`.
[[nodiscard]] int write(const Path& root, const std::string& file, Console& console);

/// Prints what has changed below `root` since `file` was written; in a table at most `limit` changes. The
/// file of another tree is a misuse.
[[nodiscard]] int compare(const Path& root, const std::string& file, std::size_t limit, Console& console);

}  // namespace tavrel::cli::TreeExport
