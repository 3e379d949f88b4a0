#pragma once

#include <cstdint>
#include <string>

namespace tavrel::FileCount {

/// A count of files where room is scarce: "999", "1.5k", "12k", "2.5M".
[[nodiscard]] std::string format(std::int64_t files);

/// The same in words: "1 file", "12k files".
[[nodiscard]] std::string text(std::int64_t files);

}  // namespace tavrel::FileCount
