#pragma once

#include <array>
#include <optional>

/// The small lights on and around the disc, each a function of the scene's time or phase. Positions are
/// points from the middle of the hole, y downwards.
namespace tavrel::DiscLights {

struct Light {
    double x = 0;
    double y = 0;
    double diameter = 0;  // points
    double opacity = 0;
};

/// Bright knots that travel round on the disc, the inner ones faster; `width` is the side of the view.
inline constexpr std::size_t knotCount = 7;
[[nodiscard]] std::array<Light, knotCount> knots(double phase, double width);

/// The body that circles the hole: small and pale where it passes behind.
struct Probe {
    double x = 0;
    double y = 0;
    double diameter = 0;
    double opacity = 1;
    bool behind = false;
};
[[nodiscard]] Probe orbit(double phase, double size);

/// Sparks on the rim; one that is not seen at `time` has no opacity.
inline constexpr std::size_t flashCount = 6;
[[nodiscard]] std::array<Light, flashCount> flashes(double time, double size);

/// Rings that run over the disc while a scan goes on.
struct Ripple {
    double radius = 0;  // points, across
    double opacity = 0;
};
inline constexpr std::size_t rippleCount = 3;
inline constexpr double rippleStroke = 1.2;  // points
[[nodiscard]] std::array<Ripple, rippleCount> ripples(double time, double size);

/// The ring that runs out after a clean, `age` seconds after its start; nothing before and after.
struct Ring {
    double radius = 0;
    double opacity = 0;
    double lineWidth = 0;
    double raised = 0;  // points above the middle
};
[[nodiscard]] std::optional<Ring> shockwave(double age, double strength, double size);

}  // namespace tavrel::DiscLights
