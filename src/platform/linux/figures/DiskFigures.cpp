#include "platform/linux/figures/DiskFigures.h"

#include "platform/linux/kernel/KernelText.h"

namespace tavrel::DiskFigures {

namespace {

constexpr std::uint64_t sector = 512;  // whatever the disk's own sectors are

}  // namespace

void parse(std::string_view diskstats, std::vector<Row>& rows) {
    rows.clear();
    while (!diskstats.empty()) {
        std::string_view line = KernelText::takeLine(diskstats);
        KernelText::skipWords(line, 2);  // the device's numbers
        const std::string_view name = KernelText::takeWord(line);
        KernelText::skipWords(line, 2);  // reads, and those merged
        const auto read = KernelText::number<std::uint64_t>(KernelText::takeWord(line));
        KernelText::skipWords(line, 3);  // time of reads, writes, and those merged
        const auto written = KernelText::number<std::uint64_t>(KernelText::takeWord(line));
        if (read && written) rows.push_back({name, {.read = *read * sector, .write = *written * sector}});
    }
}

}  // namespace tavrel::DiskFigures
