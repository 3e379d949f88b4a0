#pragma once

#include <string_view>
#include <system_error>

namespace tavrel {

/// Owns one file descriptor and closes it. Empty when it holds -1.
class FileHandle {
  public:
    FileHandle() = default;
    explicit FileHandle(int descriptor) : descriptor_(descriptor) {}
    FileHandle(FileHandle&& other) noexcept : descriptor_(other.release()) {}
    FileHandle& operator=(FileHandle&& other) noexcept;
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    ~FileHandle() { close(); }

    [[nodiscard]] int get() const { return descriptor_; }
    explicit operator bool() const { return descriptor_ >= 0; }

    /// Hands the descriptor over to the caller, who closes it.
    [[nodiscard]] int release();
    void close();

  private:
    int descriptor_ = -1;
};

/// The error of the system call that has just failed, as `errno` gives it.
[[nodiscard]] std::error_code lastError();

/// Writes all of `content` to the open `file` and flushes it to the disk.
[[nodiscard]] std::error_code writeThrough(int file, std::string_view content);

}  // namespace tavrel
