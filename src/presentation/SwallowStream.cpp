#include "presentation/SwallowStream.h"

#include "presentation/FallTime.h"

#include <algorithm>
#include <cmath>

namespace tavrel::SwallowStream {

namespace {

/// The finaliser of MurmurHash3 (public domain, A. Appleby): every bit of the input moves every bit.
std::uint64_t mixed(std::uint64_t x) {
    x ^= x >> 33U;
    x *= 0xFF51AFD7ED558CCD;
    x ^= x >> 33U;
    x *= 0xC4CEB9FE1A85EC53;
    x ^= x >> 33U;
    return x;
}

/// From 0 up to 0.9999, the same for the same cell; `salt` asks for another draw.
double draw(std::int64_t id, int row, int column, std::uint64_t salt) {
    const auto place = static_cast<std::uint64_t>(row * cellsAcross + column + 1) * 19349663U;
    const auto event = static_cast<std::uint64_t>(id) * 73856093U;
    return static_cast<double>(mixed((event ^ place) + salt) % 10'000) / 10'000;
}

}  // namespace

Icon icon(std::int64_t bytes, double age, double angle, double size) {
    const double w = fallWeight(bytes);
    const double p = std::clamp(age / fallTime(bytes), 0.0, 1.0);
    const double q = std::pow(p, 1.35);
    const double radius = (0.95 - 0.8 * q) * size;
    const double turned = angle + 0.7 * q;
    return {
        .progress = p,
        .x = radius * std::cos(turned),
        .y = radius * std::sin(turned) * 0.46,
        .side = size * 0.13 * (0.6 + 0.9 * w) * (1 - 0.3 * q),
        .opacity = std::min(p * 6, 1.0),
        .breakUp = std::clamp((q - 0.38) / 0.55, 0.0, 1.0),
    };
}

Cell cell(const Icon& icon, std::int64_t id, int row, int column) {
    const double side = icon.side / cellsAcross;
    const double half = (cellsAcross - 1) / 2.0;
    const double offsetX = (column - half) * side;
    const double offsetY = (row - half) * side;
    const double distance = std::max(std::hypot(icon.x, icon.y), 1e-6);
    const double inX = -icon.x / distance;  // towards the hole
    const double inY = -icon.y / distance;

    const double ahead = (offsetX * inX + offsetY * inY) / std::max(icon.side / 2, 1e-6);  // -1 to 1
    const double begins = std::clamp(draw(id, row, column, 0) - 0.25 * ahead, 0.0, 1.0);
    Cell cell = {.x = icon.x + offsetX, .y = icon.y + offsetY, .side = side};
    if (icon.breakUp < begins || icon.breakUp <= 0) return cell;

    const double f = std::min((icon.breakUp - begins) / std::max(1 - begins, 0.15), 1.0);
    const double along = f * 0.6 * distance + (draw(id, row, column, 1) - 0.5) * 2 * 2.4 * side * f;
    const double across = (draw(id, row, column, 2) - 0.5) * 2 * 4 * side * f;
    cell.x += inX * along - inY * across;
    cell.y += inY * along + inX * across;
    cell.side = side * std::max(1 - 0.85 * f, 0.05);
    cell.flight = f;
    cell.glow = std::max(0.35 - f, 0.0) / 0.35;
    return cell;
}

}  // namespace tavrel::SwallowStream
