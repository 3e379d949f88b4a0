#pragma once

#include <array>
#include <cstddef>
#include <span>

/// What moves behind the rings of the orbit chart, as functions of the time in seconds since any fixed
/// moment. Radii are parts of half the picture's side; turns and degrees count clockwise from the top.
namespace tavrel::OrbitMotion {

inline constexpr double horizon = 0.376;  // the radius of the ring around the dark
inline constexpr double inner = 0.4;      // where the disk begins
inline constexpr double outer = 0.92;     // and ends

/// One streak of matter on its way round.
struct Streak {
    double radius = 0;  // from the disk's inner edge, 0, to its outer, 1
    double start = 0;   // turns
    double length = 0;  // turns
    double speed = 0;   // turns a second; the inner ones are faster, as matter close to a hole is
    double alpha = 0;

    /// In units of half the picture's side.
    [[nodiscard]] double drawnRadius() const { return inner + radius * (outer - inner); }
    /// Where its tail is at `time`; turns, 0 up to 1.
    [[nodiscard]] double turn(double time) const;
};

inline constexpr std::size_t streakCount = 56;
/// Made when first asked for, and always the same.
[[nodiscard]] std::span<const Streak> streaks();

struct Stroke {
    double width = 0;  // points
    double opacity = 0;
};

/// The lines of the ring around the dark, one on the other, where `swell` times their usual width is drawn.
[[nodiscard]] std::array<Stroke, 3> horizonStrokes(double swell);
inline constexpr double largestSwell = 0.25;  // beside 1
[[nodiscard]] double swell(double time);

/// The thin rim over it, which turns.
inline constexpr double rimWidth = 1.6;     // points
[[nodiscard]] double rimTurn(double time);  // degrees
[[nodiscard]] double rimOpacity(double time);

/// Light and shade that go round on the disk, and the haze on it.
inline constexpr double sheenOpacity = 0.32;
[[nodiscard]] double sheenTurn(double time);  // degrees
[[nodiscard]] double hazeOpacity(double time);

}  // namespace tavrel::OrbitMotion
