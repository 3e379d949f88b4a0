#pragma once

#include "cleaning/CleanItem.h"
#include "cli/Console.h"

#include <filesystem>
#include <functional>
#include <vector>

/// Found items as a person reads them: by category in the order of the categories, each with its size, its
/// path and what to mind.
namespace tavrel::cli::ItemList {

/// Whether an item bears the mark of what is chosen.
using Marked = std::function<bool(const CleanItem&)>;

void print(Console& console, const std::vector<CleanItem>& items, const std::filesystem::path& home,
           const Marked& marked);

/// A path for a terminal, the home in it as "~".
[[nodiscard]] std::string shown(const std::filesystem::path& path, const std::filesystem::path& home);

}  // namespace tavrel::cli::ItemList
