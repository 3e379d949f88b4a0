#pragma once

#include "monitoring/MachineFigures.h"

namespace tavrel {

/// How well the machine does, from 0 to 100: room on the disk counts 40, memory 25, heat 20, processors 15.
[[nodiscard]] int healthScore(const MachineFigures& figures);

enum class HealthGrade { excellent, good, needsCare };

/// From 85 on it is excellent, from 65 on good.
[[nodiscard]] HealthGrade healthGrade(int score);

}  // namespace tavrel
