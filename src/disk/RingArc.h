#pragma once

namespace tavrel {

/// A place in the picture of the disk: from its middle, y downwards, in units of half its side.
struct OrbitPoint {
    double x = 0;
    double y = 0;

    /// From the middle.
    [[nodiscard]] double radius() const;
    /// How far round it lies, clockwise from the top: 0 up to 1.
    [[nodiscard]] double turn() const;
};

/// A piece of a ring as it is drawn: between two radii, from one turn to another, clockwise from the top.
/// Its ends leave a gap to its neighbours, unless it is so thin that the gap would eat it.
struct RingArc {
    double start = 0;  // turns
    double end = 0;
    double inner = 0;  // in units of half the picture's side
    double outer = 0;

    /// What is left free at each end; turns.
    [[nodiscard]] double gap() const;
    /// Where its sides stand, clockwise from the right; radians.
    [[nodiscard]] double startAngle() const;
    [[nodiscard]] double endAngle() const;

    [[nodiscard]] bool contains(const OrbitPoint& point) const;
};

}  // namespace tavrel
