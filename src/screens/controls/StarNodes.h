#pragma once

#include "presentation/ShootingStar.h"
#include "presentation/Stars.h"

#include <optional>
#include <span>

class QQuickWindow;
class QSGNode;

/// Stars as nodes of the scene graph. Each function updates what it made before, `old`, or makes it anew when
/// that is nullptr.
namespace tavrel::StarNodes {

/// One node of coloured triangles, soft at the edges.
[[nodiscard]] QSGNode* geometry(QSGNode* old, std::span<const DrawnStar> stars,
                                const std::optional<ShootingStar>& streak);

/// For the software renderer, which draws no triangles but repaints no more than the small rectangles that
/// have changed: one rectangle a star.
[[nodiscard]] QSGNode* rectangles(QSGNode* old, QQuickWindow& window, std::span<const DrawnStar> stars,
                                  const std::optional<ShootingStar>& streak);

}  // namespace tavrel::StarNodes
