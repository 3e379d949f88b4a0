#pragma once

#include <cstdint>
#include <string>

/// Numbers of files as people read them.
namespace tavrel::FileCount {

/// "999", "1.5k", "12k", "2.5M".
[[nodiscard]] std::string format(std::int64_t n);

}  // namespace tavrel::FileCount
