#pragma once

#include <array>
#include <cstdint>

/// The way of an icon into the hole: an orbit that shrinks, and near the end the icon comes apart, the side
/// nearest the hole first.
namespace tavrel::SwallowStream {

/// An icon at a moment; points from the middle, y downwards.
struct Icon {
    double progress = 0;  // 0 at its release, 1 when it has fallen
    double x = 0;
    double y = 0;
    double side = 0;
    double opacity = 1;
    double breakUp = 0;  // 0 while it is whole, 1 when nothing of it stands
};

/// `size` is the side of the view, `age` the seconds since the icon's release, `angle` where it came from.
[[nodiscard]] Icon icon(std::int64_t bytes, double age, double angle, double size);

/// An icon comes apart into a grid this wide and this high.
inline constexpr int cellsAcross = 11;

/// One cell of it, in points from the middle of the hole.
struct Cell {
    double x = 0;
    double y = 0;
    double side = 0;
    double flight = 0;  // 0 while it stands, 1 when it has arrived
    double glow = 0;    // how much of the hole's own light lies over it, 0 to 1
};

/// The cell at `row` and `column` of the icon of the event `id`.
[[nodiscard]] Cell cell(const Icon& icon, std::int64_t id, int row, int column);

}  // namespace tavrel::SwallowStream
