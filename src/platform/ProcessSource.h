#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tavrel {

/// One sampled process.
struct ProcessInfo {
    std::int32_t pid = 0;
    std::string name;
    double cpu = 0;           // percent of one processor; can exceed 100
    std::int64_t memory = 0;  // resident bytes
    double power = 0;         // energy impact, without a unit

    bool operator==(const ProcessInfo&) const = default;
};

class ProcessSource {
  public:
    virtual ~ProcessSource() = default;
    /// Returns up to 60 processes by descending processor use; empty on failure. Blocks for about a second,
    /// in which it takes two readings. Any thread, but not concurrently.
    [[nodiscard]] virtual std::vector<ProcessInfo> snapshot() = 0;
};

}  // namespace tavrel
