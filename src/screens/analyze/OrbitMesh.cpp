#include "screens/analyze/OrbitMesh.h"

#include <QSGVertexColorMaterial>
#include <algorithm>
#include <cmath>
#include <cstring>

namespace tavrel {

namespace {

using Vertex = QSGGeometry::ColoredPoint2D;

constexpr double coarsest = 0.05;   // pixels that a chord may stand off its circle
constexpr double outlineWidth = 1;  // points

/// A grid of triangles: columns of vertices from the inner to the outer edge, one beside the other.
class Builder {
  public:
    explicit Builder(const OrbitMesh::View& view) : view_(view) {}

    void add(const OrbitArc& arc) {
        const RingArc& shape = arc.shape;
        const Span span = {shape.startAngle(), shape.endAngle(), shape.inner * view_.unit,
                           shape.outer * view_.unit};
        std::vector<Row> rows;
        rows.reserve(ringLights.size() + 2);
        for (const RingLight& light : ringLights) {
            rows.push_back({span.inner + (span.outer - span.inner) * light.place, light.white, arc.opacity});
        }
        add(span, rows, arc.colour);
        if (arc.emphasis > 0) outline(span, arc.emphasis);
    }

    std::vector<Vertex> vertices;
    std::vector<quint32> indices;

  private:
    struct Span {
        double start, end;    // radians
        double inner, outer;  // points
    };
    struct Row {
        double radius;
        double white;
        double opacity;
    };

    /// A line of one point around an arc.
    void outline(const Span& span, double opacity) {
        const double half = outlineWidth / 2;
        for (const double radius : {span.inner, span.outer})
            line({span.start, span.end, radius - half, radius + half}, opacity);
        const double middle = (span.inner + span.outer) / 2;
        for (const double angle : {span.start, span.end})
            line({angle - half / middle, angle + half / middle, span.inner, span.outer}, opacity);
    }
    void line(const Span& span, double opacity) {
        add(span, {{span.inner, 1, opacity}, {span.outer, 1, opacity}}, Qt::white);
    }

    /// `rows` from the inner to the outer edge; half a pixel around is added, in which all fades.
    void add(const Span& span, std::vector<Row> rows, const QColor& colour) {
        const double feather = view_.pixel / 2;
        soften(rows, feather);
        const double middle = (span.inner + span.outer) / 2;
        // What is thinner than a pixel covers only part of it.
        const double width = (span.end - span.start) * middle;
        const double covered = std::clamp(width / view_.pixel, 0.0, 1.0);
        const double inset = std::min(feather, width / 2);
        const auto first = static_cast<quint32>(vertices.size());
        column(span.start, -feather, 0, rows, colour);
        column(span.start, inset, covered, rows, colour);
        const double chord = 2 * std::acos(1 - coarsest * view_.pixel / std::max(span.outer, 1.0));
        const int steps = static_cast<int>(std::ceil((span.end - span.start) / chord));
        for (int step = 1; step < steps; ++step) {
            const double angle = span.start + (span.end - span.start) * step / steps;
            column(angle, 0, covered, rows, colour);
        }
        column(span.end, -inset, covered, rows, colour);
        column(span.end, feather, 0, rows, colour);
        stitch(first, static_cast<quint32>(rows.size()));
    }

    static void soften(std::vector<Row>& rows, double feather) {
        Row inside = rows.front();
        Row outside = rows.back();
        inside.radius -= feather;
        outside.radius += feather;
        inside.opacity = outside.opacity = 0;
        rows.front().radius += feather;
        rows.back().radius -= feather;
        rows.insert(rows.begin(), inside);
        rows.push_back(outside);
    }

    /// `aside` are points along the circle.
    void column(double angle, double aside, double opacity, const std::vector<Row>& rows,
                const QColor& colour) {
        const double cosine = std::cos(angle);
        const double sine = std::sin(angle);
        for (const Row& row : rows) {
            const double alpha = row.opacity * opacity;
            const auto part = [&](float of) {
                return static_cast<uchar>(std::lround((of + (1 - of) * row.white) * alpha * 255));
            };
            Vertex vertex;
            vertex.set(static_cast<float>(view_.middle.x() + row.radius * cosine - aside * sine),
                       static_cast<float>(view_.middle.y() + row.radius * sine + aside * cosine),
                       part(colour.redF()), part(colour.greenF()), part(colour.blueF()),
                       static_cast<uchar>(std::lround(alpha * 255)));
            vertices.push_back(vertex);
        }
    }

    void stitch(quint32 first, quint32 rows) {
        for (quint32 at = first; at + rows < vertices.size(); ++at) {
            if ((at - first) % rows == rows - 1) continue;
            indices.insert(indices.end(), {at, at + 1, at + rows, at + rows, at + 1, at + rows + 1});
        }
    }

    const OrbitMesh::View& view_;
};

}  // namespace

OrbitMesh::OrbitMesh() {
    auto* geometry =
        new QSGGeometry(QSGGeometry::defaultAttributes_ColoredPoint2D(), 0, 0, QSGGeometry::UnsignedIntType);
    geometry->setDrawingMode(QSGGeometry::DrawTriangles);
    setGeometry(geometry);
    setFlag(OwnsGeometry);
    auto* material = new QSGVertexColorMaterial;
    material->setFlag(QSGMaterial::Blending);
    setMaterial(material);
    setFlag(OwnsMaterial);
}

void OrbitMesh::show(std::span<const OrbitArc> arcs, const View& view) {
    Builder builder(view);
    for (const OrbitArc& arc : arcs) builder.add(arc);
    geometry()->allocate(static_cast<int>(builder.vertices.size()), static_cast<int>(builder.indices.size()));
    if (!builder.vertices.empty()) {
        std::memcpy(geometry()->vertexData(), builder.vertices.data(),
                    builder.vertices.size() * sizeof(Vertex));
        std::memcpy(geometry()->indexData(), builder.indices.data(),
                    builder.indices.size() * sizeof(quint32));
    }
    markDirty(DirtyGeometry);
}

}  // namespace tavrel
