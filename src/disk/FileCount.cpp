#include "disk/FileCount.h"

#include <fmt/format.h>

namespace tavrel::FileCount {

std::string format(std::int64_t n) {
    const auto number = static_cast<double>(n);
    if (n < 1000) return fmt::format("{}", n);
    if (n < 10'000) return fmt::format("{:.1f}k", number / 1000);
    if (n < 1'000'000) return fmt::format("{:.0f}k", number / 1000);
    return fmt::format("{:.1f}M", number / 1'000'000);
}

}  // namespace tavrel::FileCount
