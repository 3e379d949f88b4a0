#include "presentation/PacedSchedule.h"

#include <cmath>

namespace tavrel {

double shootingStarAge(double time) {
    return time - std::floor(time / shootingStarPeriod) * shootingStarPeriod;
}

std::optional<double> PacedSchedule::next(double time, Mode mode) const {
    constexpr double smoothRate = 30.0;
    if (isPaused || mode == Mode::lowFrequency || !(fps > 0)) return std::nullopt;
    const bool smooth = shootingStars && shootingStarAge(time) < shootingStarDuration;
    const double rate = smooth ? smoothRate : fps;
    const double entry = std::floor(rate * time) + 1;
    // An entry times its rate may round to just below a whole number; it must not follow itself.
    return entry / rate > time ? entry / rate : (entry + 1) / rate;
}

}  // namespace tavrel
