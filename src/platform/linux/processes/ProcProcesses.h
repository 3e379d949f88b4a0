#pragma once

#include "platform/ProcessSource.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>

namespace tavrel {

/// Processes from a folder like /proc. Use is what a process's counters gained between two looks, by measured
/// time; the earlier look is that of the last snapshot while it is recent, so that a periodic
/// caller does not wait.
///
/// A process is known by its number and its start: a process that got the number of an ended one counts as
/// new. A new one counts from nothing, since all it has used it used since the earlier look. One that started
/// before that look and yet was not seen in it counts as idle: how much of its use is recent is unknown.
///
/// Of the at most 60 processes given, the 40 busiest come for their use, and those with most memory fill up
/// the list, so that it can be sorted by memory as well; all stand in the order of their use, idle ones in
/// that of their memory. `power` is the share of the time of all processors, in percent: an impact, from
/// which no watts follow.
class ProcProcesses final : public ProcessSource {
  public:
    using Duration = std::chrono::nanoseconds;

    /// Time that never jumps, and how to let it pass.
    struct Time {
        std::function<Duration()> now;
        std::function<void(Duration)> wait;
    };
    /// The units of the kernel's figures, and how many processors share the work.
    struct Machine {
        double ticksPerSecond;
        std::int64_t pageSize;
        double processors;
    };

    explicit ProcProcesses(std::filesystem::path procRoot = "/proc", Time time = systemTime(),
                           Machine machine = thisMachine());

    [[nodiscard]] std::vector<ProcessInfo> snapshot() override;

    [[nodiscard]] static Time systemTime();
    [[nodiscard]] static Machine thisMachine();

  private:
    /// What one look saw of one process.
    struct Sample {
        std::int32_t pid = 0;
        std::uint64_t start = 0;
        std::uint64_t used = 0;
        std::int64_t memory = 0;  // bytes
        double cpu = 0;           // as in ProcessInfo, once compared with the earlier look
        std::string name;         // as the kernel keeps it
    };
    struct Snapshot {
        Duration at{};
        std::vector<Sample> samples;  // by pid
    };

    [[nodiscard]] Snapshot look() const;
    void compare(const Snapshot& before, Snapshot& after) const;
    [[nodiscard]] std::vector<ProcessInfo> described(const Snapshot& look) const;

    std::filesystem::path procRoot_;
    Time time_;
    Machine machine_;
    std::optional<Snapshot> before_;
};

}  // namespace tavrel
