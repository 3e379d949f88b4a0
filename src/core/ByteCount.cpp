#include "core/ByteCount.h"

#include "core/Text.h"

#include <array>
#include <cstdint>
#include <string_view>

#include <fmt/format.h>

namespace tavrel {
namespace {

struct Unit {
    Text::English name;
    std::uint64_t bytes;
    int decimals;
};

constexpr std::array units = {
    Unit{"KB", 1'000, 0},
    Unit{"MB", 1'000'000, 1},
    Unit{"GB", 1'000'000'000, 2},
    Unit{"TB", 1'000'000'000'000, 2},
    Unit{"PB", 1'000'000'000'000'000, 2},
    Unit{"EB", 1'000'000'000'000'000'000, 2},
};

constexpr std::uint64_t powerOfTen(int exponent) {
    std::uint64_t power = 1;
    while (exponent-- > 0) power *= 10;
    return power;
}

/// How many of the unit's smallest shown steps `bytes` comes to, halves rounded up.
std::uint64_t steps(std::uint64_t bytes, const Unit& unit) {
    const std::uint64_t step = unit.bytes / powerOfTen(unit.decimals);
    return bytes / step + (bytes % step >= (step + 1) / 2 ? 1 : 0);
}

std::string inUnit(std::uint64_t bytes, const Unit& unit) {
    const std::uint64_t scale = powerOfTen(unit.decimals);
    const std::uint64_t count = steps(bytes, unit);
    std::string number = fmt::format("{}", count / scale);
    if (count % scale != 0) {
        const std::string decimals = fmt::format("{:0{}}", count % scale, unit.decimals);
        number += Text::localized(".") + decimals.substr(0, decimals.find_last_not_of('0') + 1);
    }
    return fmt::format("{} {}", number, Text::localized(unit.name));
}

std::string magnitude(std::uint64_t bytes) {
    if (bytes < units.front().bytes) {
        return fmt::format("{} {}", bytes, Text::localized("byte", "bytes", bytes));
    }
    // What would round to a thousand of a unit is one of the next.
    std::size_t index = 0;
    while (index + 1 < units.size() &&
           steps(bytes, units[index]) >= 1'000 * powerOfTen(units[index].decimals)) {
        ++index;
    }
    return inUnit(bytes, units[index]);
}

}  // namespace

std::string byteCount(std::int64_t bytes) {
    if (bytes == 0) return Text::localized("Zero KB");
    if (bytes > 0) return magnitude(static_cast<std::uint64_t>(bytes));
    return "-" + magnitude(0 - static_cast<std::uint64_t>(bytes));
}

}  // namespace tavrel
