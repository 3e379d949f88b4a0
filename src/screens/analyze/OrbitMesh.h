#pragma once

#include "screens/analyze/OrbitArcs.h"

#include <QPointF>
#include <QSGGeometryNode>
#include <span>
#include <vector>

namespace tavrel {

/// Arcs as one node of triangles, for a graphics device. Their edges fade within a pixel.
class OrbitMesh final : public QSGGeometryNode {
  public:
    OrbitMesh();

    /// Where and how large the chart is; points of the item.
    struct View {
        QPointF middle;
        double unit = 0;   // half the side
        double pixel = 1;  // of the device
    };
    void show(std::span<const OrbitArc> arcs, const View& view);
};

}  // namespace tavrel
