#include "screens/analyze/OrbitArcs.h"

#include "screens/analyze/OrbitPalette.h"

namespace tavrel {

namespace {

constexpr double dimmed = 0.4;  // of the opacity of an arc beside the one in focus
constexpr double usualBloom = 0.45;
constexpr double dimmedBloom = 0.12;
constexpr double unlit = 0.001;

double between(double from, double to, double part) {
    return from + (to - from) * part;
}

}  // namespace

OrbitArcs::OrbitArcs(const OrbitLayout& layout, const OrbitLights& lights, double reveal) {
    if (reveal <= 0) return;
    for (const OrbitSide side : {OrbitSide::inner, OrbitSide::outer}) {
        const OrbitRing& ring = OrbitChart::ring(side);
        for (const OrbitSegment& segment : OrbitChart::segments(layout, side)) {
            const OrbitLights::Light light = lights.of(segment.id);
            const OrbitArc arc = {
                .shape = ring.arc(segment, reveal, light.emphasis),
                .colour = OrbitPalette::of(segment.color),
                .opacity = between(ring.opacity, ring.opacity * dimmed, light.dim),
                .bloom = between(usualBloom, dimmedBloom, light.dim),
                .emphasis = light.emphasis,
            };
            auto& layer = light.emphasis > unlit ? lit : side == OrbitSide::inner ? inner : outer;
            layer.push_back(arc);
        }
    }
}

}  // namespace tavrel
