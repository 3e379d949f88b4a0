#pragma once

#include <cstdint>
#include <string>

namespace tavrel {

/// A size as people read it, in decimal units (1 KB is 1000 bytes): "Zero KB", "1 byte", "999 bytes",
/// "12 KB", "3.4 MB", "1.25 GB", "2 TB". Bytes and KB are whole, MB has at most one decimal, larger units
/// two; trailing zeros are dropped. The one formatter of window and command line.
[[nodiscard]] std::string byteCount(std::int64_t bytes);

}  // namespace tavrel
