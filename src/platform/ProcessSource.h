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
    /// The busiest processes, highest processor use first, at most 60; empty on any failure. Blocks for a
    /// second or so, as use is a difference of two looks; one call at a time, on any thread.
    [[nodiscard]] virtual std::vector<ProcessInfo> snapshot() = 0;
};

}  // namespace tavrel
