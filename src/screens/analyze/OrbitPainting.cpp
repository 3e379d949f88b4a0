#include "screens/analyze/OrbitPainting.h"

#include "screens/scene/Painting.h"

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>
#include <numbers>

namespace tavrel::OrbitPainting {

namespace {

using namespace Painting;

constexpr int softSide = 192;        // pixels of the soft pictures, which hold nothing sharp
constexpr double bloomBlur = 0.035;  // of the chart's side
constexpr double bloomOpacity = 0.75;
constexpr double haloBlur = 12;  // points
constexpr double haloOpacity = 0.8;
constexpr double outlineWidth = 1;  // points

/// In units of half the chart's side.
QPainterPath pathOf(const RingArc& arc) {
    constexpr double degrees = 180 / std::numbers::pi;
    const double start = -arc.startAngle() * degrees;  // Qt counts the other way round
    const double sweep = -(arc.endAngle() - arc.startAngle()) * degrees;
    const auto circle = [](double radius) { return QRectF(-radius, -radius, 2 * radius, 2 * radius); };
    QPainterPath path;
    path.arcMoveTo(circle(arc.outer), start);
    path.arcTo(circle(arc.outer), start, sweep);
    path.arcTo(circle(arc.inner), start + sweep, -sweep);
    path.closeSubpath();
    return path;
}

QColor mixedWithWhite(const QColor& colour, double white) {
    const auto mixed = [white](float part) { return part + (1 - part) * static_cast<float>(white); };
    return QColor::fromRgbF(mixed(colour.redF()), mixed(colour.greenF()), mixed(colour.blueF()));
}

QRadialGradient litColour(const OrbitArc& arc) {
    const RingArc& shape = arc.shape;
    QRadialGradient gradient(0, 0, shape.outer);
    for (const RingLight& light : ringLights) {
        const double radius = shape.inner + (shape.outer - shape.inner) * light.place;
        gradient.setColorAt(radius / shape.outer,
                            faded(mixedWithWhite(arc.colour, light.white), arc.opacity));
    }
    return gradient;
}

/// Draws with the middle as origin and half the chart's side as unit.
void prepare(QPainter& painter, const QImage& image, double unit) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(image.width() / 2.0, image.height() / 2.0);
    painter.scale(unit, unit);
    painter.setPen(Qt::NoPen);
}

QImage softArcs(std::span<const std::pair<RingArc, QColor>> shapes) {
    QImage image = blank(softSide);
    QPainter painter(&image);
    prepare(painter, image, softSide / 2.0 / reach);
    for (const auto& [shape, colour] : shapes) painter.fillPath(pathOf(shape), colour);
    return image;
}

/// The same light over less of what lies behind it.
QImage covering(QImage image, double part) {
    if (part >= 1) return image;
    for (int y = 0; y < image.height(); ++y) {
        auto* pixel = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x, ++pixel) {
            const auto alpha = static_cast<int>(qAlpha(*pixel) * part);
            *pixel = qRgba(qRed(*pixel), qGreen(*pixel), qBlue(*pixel), alpha);
        }
    }
    return image;
}

double softPixels(double partOfSide) {
    return partOfSide * softSide / reach;
}

}  // namespace

QImage arcs(std::span<const OrbitArc> arcs, int side, double scale) {
    if (arcs.empty()) return {};
    QImage image = blank(side);
    QPainter painter(&image);
    const double unit = side / 2.0;
    prepare(painter, image, unit);
    for (const OrbitArc& arc : arcs) {
        const QPainterPath path = pathOf(arc.shape);
        painter.fillPath(path, litColour(arc));
        if (arc.emphasis <= 0) continue;
        painter.strokePath(path, QPen(faded(Qt::white, arc.emphasis), outlineWidth * scale / unit));
    }
    return image;
}

QImage bloom(const OrbitArcs& arcs, double part) {
    std::vector<std::pair<RingArc, QColor>> shapes;
    for (const auto* layer : {&arcs.inner, &arcs.outer, &arcs.lit}) {
        for (const OrbitArc& arc : *layer)
            shapes.emplace_back(arc.shape, faded(arc.colour, arc.bloom * bloomOpacity));
    }
    return shapes.empty() ? QImage() : covering(blurred(softArcs(shapes), softPixels(bloomBlur)), part);
}

QImage halo(std::span<const OrbitArc> lit, double side) {
    std::vector<std::pair<RingArc, QColor>> shapes;
    for (const OrbitArc& arc : lit)
        shapes.emplace_back(arc.shape, faded(arc.colour, arc.emphasis * haloOpacity));
    return shapes.empty() ? QImage() : blurred(softArcs(shapes), softPixels(haloBlur * 0.75 / side));
}

QImage glow(int side) {
    const QColor ember = QColor::fromRgbF(1.0F, 0.55F, 0.24F);
    return roundLight(side, {{0.00, faded(ember, 0.05)},
                             {0.40, faded(ember, 0.10)},
                             {0.58, faded(ember, 0.20)},
                             {0.70, faded(ember, 0.09)},
                             {0.84, faded(ember, 0.025)},
                             {1.00, faded(ember, 0.00)}});
}

QImage shadow(int side) {
    return roundLight(
        side,
        {{0, Qt::black}, {1.0 / 3, Qt::black}, {2.0 / 3, faded(Qt::black, 0.85)}, {1, faded(Qt::black, 0)}});
}

}  // namespace tavrel::OrbitPainting
