#pragma once

#include "presentation/Stars.h"

#include <optional>

namespace tavrel {

/// A streak of light from `tail` to `head`, in points.
struct ShootingStar {
    double headX = 0;
    double headY = 0;
    double tailX = 0;
    double tailY = 0;
    double opacity = 0;  // of the head; the tail fades to nothing
};

/// The shooting star at `time`, in seconds on the clock of the paced schedule; nothing while there is none.
/// Each period has its own path, always downwards through the upper part of the view.
[[nodiscard]] std::optional<ShootingStar> shootingStar(ViewSize view, double time);

}  // namespace tavrel
