#pragma once

#include <cstdint>
#include <optional>

namespace tavrel {

/// What the hole is asked to do.
struct MotionTargets {
    bool spinning = false;  // it is at work
    bool suction = false;   // something is being pulled in
    double open = 0;        // how lit the disc is at rest, 0 to 1
    double growth = 0;      // how much has been swallowed, 0 to 1
};

/// The state that the whole scene moves by: stepped once a frame, read by everything that is drawn. What it
/// is asked to do it approaches, so that nothing jumps.
struct MotionClock {
    std::optional<double> last;  // seconds, of the frame before
    double phase = 0;            // turns the disc; wraps at 1000
    double pace = 0.22;
    double energy = 0;
    double growth = 0;

    /// The frame at `now`, in seconds since any fixed moment. A pause counts as a tenth of a second at most,
    /// and time that goes back as none.
    void step(double now, const MotionTargets& targets);
};

/// An icon on its way, as far as its landing is concerned.
struct Falling {
    std::int64_t bytes = 0;
    double start = 0;  // seconds
};

struct Shock {
    double start = 0;  // seconds
    double strength = 0;
};

/// How bright and how large the hole stands at one moment.
namespace BlackHole {

/// A scene smaller than this shows no shockwave; points.
inline constexpr double leastShockSize = 120;

/// What the landing of one icon still lights up at `now`; the pulse of a frame is the sum of all.
[[nodiscard]] double landing(const Falling& icon, double now);

/// The wave that runs at `now`; nothing in a still or small scene, or when it has ended.
[[nodiscard]] std::optional<Shock> currentShock(std::optional<Shock> latest, double now, bool animated,
                                                double size);
/// How long a wave is seen; seconds.
[[nodiscard]] double shockDuration(double strength);
/// What a wave lights up when it starts.
[[nodiscard]] double kick(const std::optional<Shock>& shock, double now);

/// From 0 to 1.6.
[[nodiscard]] double intensity(double energy, double pulse, double kick);
[[nodiscard]] double scale(double growth, double intensity, double pulse);

/// The size of the art beside its usual one, at a time in seconds: a slow breath.
[[nodiscard]] double breath(double time);
/// A slight sway of the art; radians.
[[nodiscard]] double roll(double time);
[[nodiscard]] double glowOpacity(double time, double energy);
[[nodiscard]] double backdropOpacity(double intensity);

}  // namespace BlackHole
}  // namespace tavrel
