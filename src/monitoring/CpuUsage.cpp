#include "monitoring/CpuUsage.h"

#include <limits>

namespace tavrel {

namespace {

/// The ticks between two readings of one counter; one that wrapped goes on past zero. What is further ahead
/// than half of all numbers has gone back instead.
std::optional<std::uint64_t> passed(std::uint64_t from, std::uint64_t to) {
    const std::uint64_t ticks = to - from;
    if (ticks > std::numeric_limits<std::uint64_t>::max() / 2) return std::nullopt;
    return ticks;
}

}  // namespace

std::optional<double> cpuUsage(const std::vector<Sensors::CPUTicks>& from,
                               const std::vector<Sensors::CPUTicks>& to) {
    if (from.size() != to.size()) return std::nullopt;
    double busy = 0;
    double total = 0;
    for (std::size_t i = 0; i < from.size(); ++i) {
        const auto user = passed(from[i].user, to[i].user);
        const auto system = passed(from[i].system, to[i].system);
        const auto nice = passed(from[i].nice, to[i].nice);
        const auto idle = passed(from[i].idle, to[i].idle);
        if (!user || !system || !nice || !idle) return std::nullopt;
        const double worked =
            static_cast<double>(*user) + static_cast<double>(*system) + static_cast<double>(*nice);
        busy += worked;
        total += worked + static_cast<double>(*idle);
    }
    if (total == 0) return std::nullopt;
    return busy / total;
}

}  // namespace tavrel
