#include "platform/linux/kernel/SteadyIdle.h"

#include <algorithm>

namespace tavrel {

void SteadyIdle::apply(std::vector<CpuFigures::Row>& rows) {
    auto next = before_.begin();  // both readings are in the order of the kernel
    for (CpuFigures::Row& row : rows) {
        const auto sameProcessor = [&](const CpuFigures::Row& each) {
            return each.processor == row.processor;
        };
        const auto earlier = std::find_if(next, before_.end(), sameProcessor);
        if (earlier == before_.end()) continue;
        next = earlier + 1;
        const bool anew = row.ticks.user < earlier->ticks.user || row.ticks.system < earlier->ticks.system;
        if (!anew) row.ticks.idle = std::max(row.ticks.idle, earlier->ticks.idle);
    }
    before_ = rows;
}

}  // namespace tavrel
