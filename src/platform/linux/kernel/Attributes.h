#pragma once

#include "core/FileHandle.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

/// Small files of /proc and /sys: opened for one reading, or kept open and read anew each time. None of it
/// makes the reader wait for another end.
namespace tavrel::Attributes {

/// An attribute of sysfs fits a page.
inline constexpr std::size_t page = 4096;

/// Empty where the file cannot be opened.
[[nodiscard]] FileHandle open(const std::filesystem::path& file);

/// At most the first `limit` bytes, without white space at the ends. Nothing when it cannot be read, as of an
/// empty handle.
[[nodiscard]] std::optional<std::string> text(const FileHandle& file, std::size_t limit = page);
[[nodiscard]] std::optional<std::string> text(const std::filesystem::path& file, std::size_t limit = page);

/// The whole number that it is; nothing for anything else.
[[nodiscard]] std::optional<std::int64_t> number(const FileHandle& file);
[[nodiscard]] std::optional<std::int64_t> number(const std::filesystem::path& file);

}  // namespace tavrel::Attributes
