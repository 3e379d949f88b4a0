#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tavrel {

/// The generator that skies are drawn with (a 64-bit xorshift, after Marsaglia, 2003). A seed of 0 gives 0
/// for ever.
class StarGenerator {
  public:
    explicit StarGenerator(std::uint64_t seed) : state_(seed) {}
    /// From 0 up to 0.9999.
    double draw();

  private:
    std::uint64_t state_;
};

/// One star. Places are parts of the view's width and height, sizes are diameters in points.
struct Star {
    double x = 0;
    double y = 0;
    double r = 0;
    double alpha = 1;
    double speed = 0;   // of its twinkle in radians a second, and of its drift in points a second
    double phase = 0;   // of its twinkle, in radians
    bool near = false;  // larger and faster than the others

    bool operator==(const Star&) const = default;
};

struct ViewSize {
    double width = 0;  // points
    double height = 0;
};

/// A star as it is drawn at one moment: its centre and diameter in points, its opacity from 0 to 1.
struct DrawnStar {
    double x = 0;
    double y = 0;
    double diameter = 0;
    double opacity = 0;
};

/// A sky that stands still, the same for the same seed.
struct Starfield {
    std::size_t count = 0;
    std::uint64_t seed = 0;

    [[nodiscard]] std::vector<Star> stars() const;
};

/// The one sky that moves: its stars twinkle, drift, and come back on the other side.
namespace LiveStarfield {

/// Built when first asked for.
[[nodiscard]] std::span<const Star> stars();

/// `time` is in seconds since any fixed moment. The centre may lie up to 10 points outside the view, so that
/// no star is seen to vanish.
[[nodiscard]] DrawnStar drawn(const Star& star, ViewSize view, double time);

}  // namespace LiveStarfield
}  // namespace tavrel
