#include "Tracer.h"

#include <cmath>

#include <gtest/gtest.h>

namespace blackhole {
namespace {

/// The path of a ray that passes the hole, if that were no mass, at `distance` of its middle.
Path pass(double distance) {
    return trace({distance, 0.5, 60}, {0, 0, -1}, [](const Crossing&) { return true; });
}

TEST(LightTracer, CatchesTheLightThatTheShadowHides) {
    const double edge = 1.5 * std::sqrt(3.0);  // Schwarzschild radii
    EXPECT_EQ(pass(edge * 0.97).end, End::captured);
    EXPECT_EQ(pass(edge * 1.03).end, End::escaped);
}

TEST(LightTracer, ComesAsNearAsTheGeometrySays) {
    for (const double closest : {2.0, 4.0, 10.0}) {
        const double distance = closest / std::sqrt(1 - 1 / closest);  // where the path runs around the hole
        EXPECT_NEAR(pass(std::sqrt(distance * distance - 0.25)).closest, closest, 0.02 * closest);
    }
}

}  // namespace
}  // namespace blackhole
