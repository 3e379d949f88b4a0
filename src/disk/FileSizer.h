#pragma once

#include <cstdint>
#include <filesystem>

namespace tavrel::FileSizer {

/// Bytes that the contents of a file or folder occupy on disk. Folders themselves and symbolic links count
/// nothing, every name of a hard-linked file counts again, what cannot be read counts 0. Never leaves the
/// file system it starts on. Safe from any thread.
[[nodiscard]] std::int64_t size(const std::filesystem::path& of);

}  // namespace tavrel::FileSizer
