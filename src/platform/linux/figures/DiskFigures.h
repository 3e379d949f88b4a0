#pragma once

#include "platform/Sensors.h"

#include <string_view>
#include <vector>

/// What the disks have moved, after the kernel's documentation of its I/O statistics.
namespace tavrel::DiskFigures {

/// Disks, partitions and what is built of them alike.
struct Row {
    std::string_view name;  // within the text that was parsed
    Sensors::DiskIO bytes;
};

/// Fills `rows` from /proc/diskstats; broken rows are passed over. Like the counters, the bytes may wrap.
void parse(std::string_view diskstats, std::vector<Row>& rows);

}  // namespace tavrel::DiskFigures
