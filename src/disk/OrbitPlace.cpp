#include "disk/OrbitPlace.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tavrel::OrbitChart {

namespace {

constexpr std::array sides = {OrbitSide::inner, OrbitSide::outer};

RingArc drawn(const OrbitLayout& layout, const OrbitPlace& place, double reveal, double emphasis) {
    return ring(place.side).arc(segment(layout, place), reveal, emphasis);
}

/// The arc in focus with the gaps around it: one of its own and one of its neighbour's, and the slit
/// between the rings.
bool holds(const RingArc& arc, OrbitSide side, const OrbitPoint& point) {
    constexpr double slack = 0.0001;
    const double inner = side == OrbitSide::outer ? innerRing.outer : arc.inner;
    const double radius = point.radius();
    const double turn = point.turn();
    const double gap = arc.gap() + slack;
    const auto covers = [&](double at) { return at >= arc.start - gap && at <= arc.end + gap; };
    // Turns begin anew at the top, where the last arc's gap meets the first one's.
    return radius >= inner && radius <= arc.outer && (covers(turn) || covers(turn - 1) || covers(turn + 1));
}

/// How far a turn lies from an arc, the shorter way round; 0 within it.
double distance(const OrbitSegment& segment, double turn) {
    if (turn >= segment.start && turn <= segment.end) return 0;
    const auto apart = [turn](double end) {
        const double straight = std::abs(end - turn);
        return std::min(straight, 1 - straight);
    };
    return std::min(apart(segment.start), apart(segment.end));
}

}  // namespace

const OrbitRing& ring(OrbitSide side) {
    return side == OrbitSide::inner ? innerRing : outerRing;
}

const std::vector<OrbitSegment>& segments(const OrbitLayout& layout, OrbitSide side) {
    return side == OrbitSide::inner ? layout.inner : layout.outer;
}

const OrbitSegment& segment(const OrbitLayout& layout, const OrbitPlace& place) {
    return segments(layout, place.side).at(place.index);
}

std::optional<OrbitPlace> find(const OrbitLayout& layout, std::string_view id) {
    for (const OrbitSide side : sides) {
        const auto& all = segments(layout, side);
        for (std::size_t i = 0; i < all.size(); ++i) {
            if (all[i].id == id) return OrbitPlace{side, i};
        }
    }
    return std::nullopt;
}

std::optional<OrbitPlace> segmentAt(const OrbitLayout& layout, const OrbitPoint& point, double reveal,
                                    std::optional<OrbitPlace> focused) {
    if (focused && drawn(layout, *focused, reveal, 1).contains(point)) return focused;
    for (const OrbitSide side : sides) {
        for (std::size_t i = 0; i < segments(layout, side).size(); ++i) {
            const OrbitPlace place = {side, i};
            if (place != focused && drawn(layout, place, reveal, 0).contains(point)) return place;
        }
    }
    if (focused && holds(drawn(layout, *focused, reveal, 1), focused->side, point)) return focused;
    return std::nullopt;
}

OrbitPlace neighbour(const OrbitLayout& layout, const OrbitPlace& place, int step) {
    const auto count = static_cast<std::ptrdiff_t>(segments(layout, place.side).size());
    const auto index = (static_cast<std::ptrdiff_t>(place.index) + step % count + count) % count;
    return {place.side, static_cast<std::size_t>(index)};
}

std::optional<OrbitPlace> across(const OrbitLayout& layout, const OrbitPlace& place, OrbitSide side) {
    const auto& all = segments(layout, side);
    if (place.side == side || all.empty()) return std::nullopt;
    const OrbitSegment& from = segment(layout, place);
    const double middle = (from.start + from.end) / 2;
    const auto nearest =
        std::min_element(all.begin(), all.end(), [middle](const OrbitSegment& a, const OrbitSegment& b) {
            return distance(a, middle) < distance(b, middle);
        });
    return OrbitPlace{side, static_cast<std::size_t>(nearest - all.begin())};
}

}  // namespace tavrel::OrbitChart
