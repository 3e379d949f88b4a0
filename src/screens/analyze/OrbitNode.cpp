#include "screens/analyze/OrbitNode.h"

#include "screens/analyze/OrbitPainting.h"

#include <QQuickWindow>
#include <QSGRendererInterface>
#include <algorithm>
#include <cmath>

namespace tavrel {

namespace {

constexpr int largestMotion = 840;  // pixels; a larger chart shows it enlarged, as it is soft anyway

constexpr double covering = 0.4;  // of the light: no more than keeps the sum below white

template <typename Node>
Node* owned(QSGNode& parent, Node* node) {
    node->setFlag(QSGNode::OwnedByParent);
    parent.appendChildNode(node);
    return node;
}

}  // namespace

OrbitNode::OrbitNode(QQuickWindow& window)
    : window_(window),
      isPainted_(window.rendererInterface()->graphicsApi() == QSGRendererInterface::Software),
      glow_(owned(*this, new PictureLayer)),
      motion_(owned(*this, new PictureLayer)),
      bloom_(owned(*this, new PictureLayer)),
      inner_(makeRing()),
      outer_(makeRing()),
      halo_(owned(*this, new PictureLayer)),
      lit_(makeRing()),
      shadow_(owned(*this, new PictureLayer)) {}

OrbitNode::Ring OrbitNode::makeRing() {
    if (isPainted_) return {.picture = owned(*this, new PictureLayer)};
    return {.mesh = owned(*this, new OrbitMesh)};
}

QRectF OrbitNode::around(double side) const {
    const QPointF middle = place_.center();
    return {middle.x() - side / 2, middle.y() - side / 2, side, side};
}

int OrbitNode::pixels(double points) const {
    return static_cast<int>(std::lround(points * scale_));
}

bool OrbitNode::standsAt(const QRectF& place) const {
    return place_ == place && scale_ == window_.effectiveDevicePixelRatio();
}

void OrbitNode::resize(const QRectF& place) {
    place_ = place;
    scale_ = window_.effectiveDevicePixelRatio();
    const double side = place.width();
    const int moving = std::min(pixels(side), largestMotion);
    moving_.emplace(moving, moving / side);
    const QRectF lit = around(side * OrbitPainting::glowReach);
    glow_->show(window_, OrbitPainting::glow(pixels(lit.width())), lit);
    const QRectF dark = around(side * OrbitPainting::shadowReach);
    shadow_->show(window_, OrbitPainting::shadow(pixels(dark.width())), dark);
}

void OrbitNode::showMotion(double time) {
    motion_->show(window_, moving_->at(time), place_);
}

void OrbitNode::showArcs(const OrbitArcs& arcs) {
    showSoft(*bloom_, OrbitPainting::bloom(arcs, isPainted_ ? 1 : covering));
    showRing(inner_, arcs.inner);
    showRing(outer_, arcs.outer);
    showSoft(*halo_, OrbitPainting::halo(arcs.lit, place_.width()));
    showRing(lit_, arcs.lit);
}

void OrbitNode::showRing(Ring& ring, std::span<const OrbitArc> arcs) {
    if (ring.mesh != nullptr) {
        ring.mesh->show(arcs, {.middle = place_.center(), .unit = place_.width() / 2, .pixel = 1 / scale_});
    } else {
        ring.picture->show(window_, OrbitPainting::arcs(arcs, pixels(place_.width()), scale_), place_);
    }
}

void OrbitNode::showSoft(PictureLayer& layer, const QImage& picture) {
    const QRectF place = around(place_.width() * OrbitPainting::reach);
    if (!isPainted_ || picture.isNull()) return layer.show(window_, picture, place);
    // The rasteriser takes long to enlarge, which it would do every frame.
    const int side = pixels(place.width());
    layer.show(window_, picture.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation), place);
}

}  // namespace tavrel
