#include "platform/linux/figures/CpuFigures.h"

#include "platform/linux/kernel/KernelText.h"

#include <array>

namespace tavrel::CpuFigures {

namespace {

using KernelText::number;
using KernelText::takeWord;

constexpr std::string_view prefix = "cpu";

enum Column { user, nice, system, idle, ioWait, irq, softIRQ, columns };
constexpr int requiredColumns = idle + 1;  // later ones came with later kernels

}  // namespace

void parse(std::string_view stat, std::vector<Row>& rows) {
    rows.clear();
    while (stat.starts_with(prefix)) {
        std::string_view line = KernelText::takeLine(stat);
        const auto processor = number<std::uint32_t>(takeWord(line).substr(prefix.size()));
        std::array<std::uint64_t, columns> ticks{};
        int read = 0;
        while (read < columns) {
            const auto value = number<std::uint64_t>(takeWord(line));
            if (!value) break;
            ticks.at(static_cast<std::size_t>(read++)) = *value;
        }
        if (!processor || read < requiredColumns) continue;  // without a number, the sum of all
        rows.push_back({*processor,
                        {.user = ticks[user],
                         .system = ticks[system] + ticks[irq] + ticks[softIRQ],
                         .idle = ticks[idle] + ticks[ioWait],
                         .nice = ticks[nice]}});
    }
}

std::int64_t countOf(std::string_view list) {
    std::int64_t count = 0;
    while (!list.empty()) {
        const std::string_view range = list.substr(0, list.find(','));
        list.remove_prefix(range.size() == list.size() ? list.size() : range.size() + 1);
        const std::size_t dash = range.find('-');
        const auto first = number<std::uint32_t>(range.substr(0, dash));
        const auto last =
            dash == std::string_view::npos ? first : number<std::uint32_t>(range.substr(dash + 1));
        if (!first || !last || *last < *first) return 0;
        count += std::int64_t{*last} - *first + 1;
    }
    return count;
}

}  // namespace tavrel::CpuFigures
