#pragma once

#include "disk/OrbitPlace.h"
#include "screens/analyze/OrbitLights.h"

#include <QColor>
#include <vector>

namespace tavrel {

/// An arc as it is drawn at one moment.
struct OrbitArc {
    RingArc shape;
    QColor colour;
    double opacity = 1;
    double bloom = 0;     // how strong its light around it is
    double emphasis = 0;  // 0 to 1
};

/// The arcs of one moment, from the back to the front. What is in focus lies above both rings.
struct OrbitArcs {
    std::vector<OrbitArc> inner;
    std::vector<OrbitArc> outer;
    std::vector<OrbitArc> lit;

    OrbitArcs() = default;
    OrbitArcs(const OrbitLayout& layout, const OrbitLights& lights, double reveal);
};

/// The light on a ring, white at its inner edge and clear further out; the part of the way between them.
struct RingLight {
    double place;
    double white;
};
inline constexpr std::array ringLights = {RingLight{0, 0.6}, RingLight{0.3, 0.2}, RingLight{0.75, 0},
                                          RingLight{1, 0}};

}  // namespace tavrel
