#include "monitoring/MachineFigures.h"

#include <algorithm>

namespace tavrel {

double usedShare(const Sensors::Memory& memory) {
    const auto total = std::max<std::int64_t>(memory.total.value_or(0), 1);
    return static_cast<double>(memory.used.value_or(0)) / static_cast<double>(total);
}

double usedShare(const Sensors::DiskSpace& disk) {
    if (!disk.total || !disk.available || *disk.total < 1) return 0;
    return (static_cast<double>(*disk.total) - static_cast<double>(*disk.available)) /
           static_cast<double>(*disk.total);
}

double fanLoad(const std::vector<Fan>& fans) {
    return fans.empty() || fans.front().max <= 0 ? 0 : fans.front().rpm / fans.front().max;
}

}  // namespace tavrel
