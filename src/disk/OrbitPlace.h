#pragma once

#include "disk/OrbitLayout.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace tavrel {

enum class OrbitSide { inner, outer };

/// Which arc of a layout.
struct OrbitPlace {
    OrbitSide side = OrbitSide::inner;
    std::size_t index = 0;

    bool operator==(const OrbitPlace&) const = default;
};

/// How pointer and keyboard find arcs.
namespace OrbitChart {

[[nodiscard]] const OrbitRing& ring(OrbitSide side);
[[nodiscard]] const std::vector<OrbitSegment>& segments(const OrbitLayout& layout, OrbitSide side);
[[nodiscard]] const OrbitSegment& segment(const OrbitLayout& layout, const OrbitPlace& place);

/// The arc with that id.
[[nodiscard]] std::optional<OrbitPlace> find(const OrbitLayout& layout, std::string_view id);

/// The arc that is drawn at `point`. The arc in focus is larger, lies above the others, and keeps what lies
/// in the gap between it and its neighbours, so that nothing flickers on the way from one to the next.
[[nodiscard]] std::optional<OrbitPlace> segmentAt(const OrbitLayout& layout, const OrbitPoint& point,
                                                  double reveal, std::optional<OrbitPlace> focused);

/// The next arc of the same ring in that direction, round and round.
[[nodiscard]] OrbitPlace neighbour(const OrbitLayout& layout, const OrbitPlace& place, int step);
/// The arc of the other ring that lies closest; nothing where that ring is empty or is the same one.
[[nodiscard]] std::optional<OrbitPlace> across(const OrbitLayout& layout, const OrbitPlace& place,
                                               OrbitSide side);

}  // namespace OrbitChart
}  // namespace tavrel
