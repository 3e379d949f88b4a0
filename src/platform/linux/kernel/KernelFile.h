#pragma once

#include "core/FileHandle.h"

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace tavrel {

/// A file of /proc or /sys that is read again and again: opened once, and read into memory that it keeps.
class KernelFile {
  public:
    explicit KernelFile(std::filesystem::path path) : path_(std::move(path)) {}

    /// The content as it is now, at most `maximumBytes` of it; good until the next call. Nothing when it
    /// cannot be read, by a handle that is opened anew either.
    [[nodiscard]] std::optional<std::string_view> read();

    static constexpr std::size_t maximumBytes = std::size_t{4} << 20;

  private:
    std::optional<std::string_view> readOpened();

    std::filesystem::path path_;
    FileHandle handle_;
    std::vector<char> buffer_;
};

}  // namespace tavrel
