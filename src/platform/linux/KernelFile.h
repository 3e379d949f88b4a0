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
    /// What a read that fails leads to. A file whose path may come to mean something else is not opened
    /// again.
    enum class Lost { reopen, tell };

    explicit KernelFile(std::filesystem::path path, Lost lost = Lost::reopen)
        : path_(std::move(path)), lost_(lost) {}

    /// The content as it is now, at most `maximumBytes` of it; good until the next call. Nothing when it
    /// cannot be read.
    [[nodiscard]] std::optional<std::string_view> read();

    static constexpr std::size_t maximumBytes = std::size_t{4} << 20;

  private:
    void open();
    std::optional<std::string_view> readOpened();

    std::filesystem::path path_;
    Lost lost_;
    bool opened_ = false;
    FileHandle handle_;
    std::vector<char> buffer_;
};

}  // namespace tavrel
