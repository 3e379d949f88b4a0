#pragma once

#include "screens/analyze/OrbitArcs.h"

#include <QImage>

/// Arcs painted pixel by pixel: all of them for Qt's own rasteriser, and the soft light around them.
namespace tavrel::OrbitPainting {

/// The side of the pictures of soft light beside that of the chart: they reach beyond it.
inline constexpr double reach = 1.3;

/// Sharp, as large as the chart, whose side has that many pixels; `scale` are pixels for a point.
[[nodiscard]] QImage arcs(std::span<const OrbitArc> arcs, int side, double scale);

/// The light that the arcs shed around them, small: to be shown `reach` times as large as the chart.
/// It covers that part of what lies behind it. Below 1 it adds its light to that; only for a graphics device,
/// since in the rasteriser such sums run over and come out in any colour.
[[nodiscard]] QImage bloom(const OrbitArcs& arcs, double covering);
/// The light behind the arcs in focus, of the same kind; `side` of the chart in points.
[[nodiscard]] QImage halo(std::span<const OrbitArc> lit, double side);

/// The light around the chart: to be shown that many times as large as it.
inline constexpr double glowReach = 1.6;
[[nodiscard]] QImage glow(int side);

/// The dark in the middle, of the same kind.
inline constexpr double shadowReach = 0.376 * 1.24;
[[nodiscard]] QImage shadow(int side);

}  // namespace tavrel::OrbitPainting
