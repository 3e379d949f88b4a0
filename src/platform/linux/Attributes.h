#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

/// Files of /proc and /sys that are read now and then, opened for it each time.
namespace tavrel::Attributes {

/// An attribute of sysfs fits a page.
inline constexpr std::size_t page = 4096;

/// At most the first `limit` bytes, without white space at the ends. Nothing when it cannot be read, and
/// never a wait.
[[nodiscard]] std::optional<std::string> text(const std::filesystem::path& file, std::size_t limit = page);

[[nodiscard]] std::optional<std::int64_t> number(const std::filesystem::path& file);

}  // namespace tavrel::Attributes
