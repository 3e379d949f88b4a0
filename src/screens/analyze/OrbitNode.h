#pragma once

#include "screens/analyze/ChartMotion.h"
#include "screens/analyze/OrbitMesh.h"
#include "screens/analyze/PictureLayer.h"

#include <QRectF>
#include <optional>

namespace tavrel {

/// The chart as nodes, from the back to the front: the glow around it, what moves, the light of the rings,
/// the rings, what is in focus, the dark in the middle.
// The software renderer forgets where a plain node stands when one below it changes: hence the transform.
class OrbitNode final : public QSGTransformNode {
  public:
    explicit OrbitNode(QQuickWindow& window);

    /// Whether it has to be made anew to stand at `place`, a square in points of the item.
    [[nodiscard]] bool standsAt(const QRectF& place) const;
    /// What moves and the arcs have to be shown again after this.
    void resize(const QRectF& place);

    void showMotion(double time);  // seconds
    void showArcs(const OrbitArcs& arcs);

  private:
    /// A ring: triangles on a graphics device, else a picture.
    struct Ring {
        OrbitMesh* mesh = nullptr;
        PictureLayer* picture = nullptr;
    };
    Ring makeRing();
    void showRing(Ring& ring, std::span<const OrbitArc> arcs);
    void showSoft(PictureLayer& layer, const QImage& picture);
    [[nodiscard]] QRectF around(double side) const;
    [[nodiscard]] int pixels(double points) const;

    QQuickWindow& window_;
    const bool isPainted_;  // by Qt's own rasteriser
    double scale_ = 0;      // pixels for a point
    QRectF place_;
    std::optional<ChartMotion> moving_;

    PictureLayer* glow_;
    PictureLayer* motion_;
    PictureLayer* bloom_;
    Ring inner_;
    Ring outer_;
    PictureLayer* halo_;
    Ring lit_;
    PictureLayer* shadow_;
};

}  // namespace tavrel
