#pragma once

#include "models/show/SwallowFeed.h"
#include "presentation/MotionClock.h"
#include "screens/scene/SceneCanvas.h"
#include "screens/scene/ScenePictures.h"

#include <optional>
#include <span>

namespace tavrel {

/// Everything that a frame of the scene shows.
struct SceneState {
    double time = 0;  // seconds since the epoch
    double size = 0;  // side of the view, points
    QPointF middle;   // of the hole, in the item
    MotionClock motion;
    double pulse = 0;
    double intensity = 0;
    double scale = 1;
    bool scanning = false;
    std::span<const SwallowFeed::Event> events;
    std::optional<Shock> shock;
};

/// Draws one frame: a function of the state alone.
void drawScene(const SceneState& state, const ScenePictures& pictures, SceneCanvas& canvas);

}  // namespace tavrel
