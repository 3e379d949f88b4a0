#include "platform/linux/figures/MemoryFigures.h"

#include "platform/linux/kernel/KernelText.h"

#include <algorithm>
#include <limits>

namespace tavrel::MemoryFigures {

namespace {

using Bytes = std::optional<std::int64_t>;

// A desktop that waits a tenth of its time is felt to stutter. From two fifths on it hardly answers, and the
// usual killer of processes for want of memory (systemd-oomd, at 60 percent) is not far.
constexpr double elevatedPercent = 10;
constexpr double criticalPercent = 40;

struct Entries {
    Bytes total, available, free, buffers, cached, swapTotal, swapFree;
};

struct Name {
    std::string_view text;
    Bytes Entries::*entry;
};

constexpr Name names[] = {
    {"MemTotal:", &Entries::total},    {"MemAvailable:", &Entries::available},
    {"MemFree:", &Entries::free},      {"Buffers:", &Entries::buffers},
    {"Cached:", &Entries::cached},     {"SwapTotal:", &Entries::swapTotal},
    {"SwapFree:", &Entries::swapFree},
};

Bytes bytes(std::string_view kibibytes) {
    constexpr std::int64_t kibibyte = 1024;
    const auto value = KernelText::number<std::int64_t>(kibibytes);
    if (!value || *value < 0 || *value > std::numeric_limits<std::int64_t>::max() / kibibyte)
        return std::nullopt;
    return *value * kibibyte;
}

Entries entriesOf(std::string_view meminfo) {
    Entries entries;
    while (!meminfo.empty()) {
        std::string_view line = KernelText::takeLine(meminfo);
        const std::string_view word = KernelText::takeWord(line);
        const auto* known = std::find_if(std::begin(names), std::end(names),
                                         [&](const Name& each) { return each.text == word; });
        if (known != std::end(names)) entries.*(known->entry) = bytes(KernelText::takeWord(line));
    }
    return entries;
}

/// What kernels before MemAvailable tell, which takes shared memory for free.
Bytes estimatedAvailable(const Entries& entries) {
    if (!entries.free) return std::nullopt;
    std::int64_t sum = *entries.free;
    for (const Bytes& more : {entries.buffers, entries.cached}) {
        if (__builtin_add_overflow(sum, more.value_or(0), &sum)) return std::nullopt;
    }
    return sum;
}

Bytes difference(const Bytes& whole, const Bytes& part) {
    if (!whole || !part) return std::nullopt;
    return std::max<std::int64_t>(*whole - *part, 0);
}

}  // namespace

Sensors::Memory parse(std::string_view meminfo) {
    const Entries entries = entriesOf(meminfo);
    const Bytes available = entries.available ? entries.available : estimatedAvailable(entries);
    return {.used = difference(entries.total, available),
            .total = entries.total,
            .swap = difference(entries.swapTotal, entries.swapFree),
            .pressure = std::nullopt};
}

std::optional<std::int64_t> pressureLevel(std::string_view pressure) {
    constexpr std::string_view average = "avg10=";
    while (!pressure.empty()) {
        std::string_view line = KernelText::takeLine(pressure);
        if (KernelText::takeWord(line) != "some") continue;
        const std::string_view word = KernelText::takeWord(line);
        if (!word.starts_with(average)) return std::nullopt;
        const auto percent = KernelText::decimal(word.substr(average.size()));
        if (!percent || *percent < 0) return std::nullopt;
        return *percent >= criticalPercent ? 4 : *percent >= elevatedPercent ? 2 : 1;
    }
    return std::nullopt;
}

}  // namespace tavrel::MemoryFigures
