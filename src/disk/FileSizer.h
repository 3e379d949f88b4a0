#pragma once

#include "core/Instant.h"

#include <cstdint>
#include <filesystem>

namespace tavrel::FileSizer {

/// Bytes that the contents of a file or folder occupy on disk. Folders themselves and symbolic links count
/// nothing, every name of a hard-linked file counts again, what cannot be read counts 0. Never leaves the
/// file system it starts on. Safe from any thread.
[[nodiscard]] std::int64_t size(const std::filesystem::path& of);

struct Measure {
    std::int64_t size = 0;         // bytes, as `size` has them
    Instant newest = distantPast;  // last modification of the thing itself and of the files and links in it
};
/// The size and the newest date in one walk. Nothing there: the defaults.
[[nodiscard]] Measure measure(const std::filesystem::path& of);

}  // namespace tavrel::FileSizer
