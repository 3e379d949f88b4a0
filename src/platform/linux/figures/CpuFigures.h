#pragma once

#include "platform/Sensors.h"

#include <cstdint>
#include <string_view>
#include <vector>

/// What the processors have done, after proc(5), "/proc/stat", and the processors themselves.
namespace tavrel::CpuFigures {

struct Row {
    std::uint32_t processor = 0;
    Sensors::CPUTicks ticks;

    bool operator==(const Row&) const = default;
};

/// Fills `rows` with the processors that `stat` names; broken rows are passed over.
///
/// Time of guests is in user and nice already. Waiting for a disk is idling, serving interrupts is work of
/// the system. Time that a hypervisor stole counts as nothing: it is neither work of this machine nor rest,
/// so that what is left is the share of the time that the machine was given.
void parse(std::string_view stat, std::vector<Row>& rows);

/// How many processors a list such as "0-3,6" names; 0 where it is none.
[[nodiscard]] std::int64_t countOf(std::string_view list);

}  // namespace tavrel::CpuFigures
