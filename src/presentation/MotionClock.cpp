#include "presentation/MotionClock.h"

#include "presentation/FallTime.h"

#include <algorithm>
#include <cmath>

namespace tavrel {

namespace {

constexpr double idlePace = 0.22;
constexpr double workingPace = 1.0;
constexpr double suctionPace = 2.4;
constexpr double longestStep = 0.1;  // seconds
constexpr double phaseWrap = 1000;

/// How far a value goes towards its target within `dt`, whatever the rate of frames.
double approach(double dt, double rate) {
    return 1 - std::exp(-dt * rate);
}

}  // namespace

void MotionClock::step(double now, const MotionTargets& targets) {
    const double targetPace = targets.suction ? suctionPace : targets.spinning ? workingPace : idlePace;
    const double targetEnergy = targets.suction ? 1.0 : targets.open;
    const double dt = last ? std::clamp(now - *last, 0.0, longestStep) : 0.0;
    last = now;
    const double k = approach(dt, 2.5);
    pace += (targetPace - pace) * k;
    energy += (targetEnergy - energy) * k;
    phase = std::fmod(phase + dt * pace * 0.3, phaseWrap);
    growth += (targets.growth - growth) * approach(dt, 0.9);
}

namespace BlackHole {

double landing(const Falling& icon, double now) {
    const double age = now - (icon.start + fallTime(icon.bytes));
    return age < 0 ? 0 : std::exp(-4.0 * age) * (fallWeight(icon.bytes) + 0.35);
}

double shockDuration(double strength) {
    return strength + 1.9;
}

std::optional<Shock> currentShock(std::optional<Shock> latest, double now, bool animated, double size) {
    if (!latest || !animated || size < leastShockSize) return std::nullopt;
    if (now - latest->start >= shockDuration(latest->strength)) return std::nullopt;
    return latest;
}

double kick(const std::optional<Shock>& shock, double now) {
    if (!shock || now < shock->start) return 0;
    return std::exp(-5.0 * (now - shock->start)) * (shock->strength + 0.5);
}

double intensity(double energy, double pulse, double kick) {
    return std::min(energy + 0.45 * pulse + kick, 1.6);
}

double scale(double growth, double intensity, double pulse) {
    return (1 + 0.35 * growth) * (1 + 0.05 * intensity + 0.03 * std::min(pulse, 1.5));
}

double breath(double time) {
    return 1 + std::sin(time * 0.83) * 0.009 + std::sin(time * 1.37 + 1.1) * 0.005;
}

double roll(double time) {
    return std::sin(time * 0.31) * 0.0175;
}

double glowOpacity(double time, double energy) {
    return std::sin(time * 2.1) * 0.05 + 0.16 + 0.12 * energy;
}

double backdropOpacity(double intensity) {
    return 0.15 * intensity + 0.28;
}

}  // namespace BlackHole
}  // namespace tavrel
