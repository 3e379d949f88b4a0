#pragma once

#include "cleaning/CleanReport.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

/// What the explorer says, in the user's language.
namespace tavrel::AnalyzeTexts {

/// "Whole disk" for the root, else the folder's name.
[[nodiscard]] std::string folderTitle(const std::filesystem::path& folder, const std::filesystem::path& root);

[[nodiscard]] std::string items(std::size_t count);
/// How many things are not measured yet.
[[nodiscard]] std::string measuring(std::size_t pending);

[[nodiscard]] std::string selection(std::size_t count, std::int64_t bytes);
/// Asks before a removal.
[[nodiscard]] std::string question(std::size_t count, std::int64_t bytes);
/// One line on what a removal did or, in a preview, would have done.
[[nodiscard]] std::string removal(const CleanReport& report);

}  // namespace tavrel::AnalyzeTexts
