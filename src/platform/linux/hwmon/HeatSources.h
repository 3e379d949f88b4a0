#pragma once

#include <array>
#include <string_view>

/// Prefixes of the kernel's sensor names, by the component whose temperature they measure.
namespace tavrel::HeatSources {

/// What precedes the labels of the sensors to use, best first; an empty one takes every sensor.
using Labels = std::array<std::string_view, 3>;

struct Chip {
    std::string_view name;
    Labels labels;
};

/// Best first: the first that is there is the one to use. The last ones are thermal zones of boards, which
/// number them: "cpu0_thermal".
inline constexpr Chip processors[] = {
    {"coretemp", {"Package id ", "Core "}},
    {"k10temp", {"Tdie", "Tctl"}},
    {"zenpower", {"Tdie", "Tctl"}},
    {"cpu", {}},
    {"bigcore", {}},
    {"soc", {}},
};
/// Some place of the board, often near the processors.
inline constexpr Chip lastResort = {"acpitz", {}};

/// Every one that is there.
inline constexpr Chip graphics[] = {
    {"amdgpu", {"edge"}}, {"radeon", {}}, {"nouveau", {}}, {"i915", {"pkg"}}, {"xe", {"pkg"}},
};

/// Thermal zones of the processors by their types, best first.
inline constexpr std::string_view processorZones[] = {"x86_pkg_temp", "cpu", "bigcore", "soc"};

}  // namespace tavrel::HeatSources
