#pragma once

#include <optional>

namespace tavrel {

/// Every so many seconds a shooting star crosses the sky, and for that long the stars run smoothly.
inline constexpr double shootingStarPeriod = 11.0;    // seconds
inline constexpr double shootingStarDuration = 0.95;  // seconds

/// Seconds since the latest start of a period.
[[nodiscard]] double shootingStarAge(double time);

/// When a moving picture is drawn next: on a fixed grid of the clock, so that pictures that share a rate are
/// drawn together whenever they began.
struct PacedSchedule {
    /// `lowFrequency` is for a picture that cannot move at all at present.
    enum class Mode { normal, lowFrequency };

    double fps = 12.0;           // pictures a second
    bool isPaused = false;       // nothing is drawn until the schedule is made anew
    bool shootingStars = false;  // whether the rate rises while one crosses

    /// The first entry after `time`, both in seconds since one fixed moment; nothing when the sequence ends.
    [[nodiscard]] std::optional<double> next(double time, Mode mode = Mode::normal) const;
};

}  // namespace tavrel
