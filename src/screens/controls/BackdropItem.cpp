#include "screens/controls/BackdropItem.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QQuickWindow>
#include <QRadialGradient>
#include <QSGImageNode>
#include <memory>

namespace tavrel {

namespace {

constexpr QPointF glowCentre(0.8, 0.15);  // parts of the view
constexpr qreal glowInner = 10;           // points
constexpr qreal glowOuter = 520;

QColor transparent(QColor colour) {
    colour.setAlpha(0);
    return colour;
}

}  // namespace

BackdropItem::BackdropItem(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

void BackdropItem::assign(QColor& member, const QColor& colour) {
    if (member == colour) return;
    member = colour;
    stale_ = true;
    update();
}

void BackdropItem::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    stale_ = true;
    update();
}

QImage BackdropItem::painted(const QSize& pixels) const {
    QImage image(pixels, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.scale(pixels.width() / width(), pixels.height() / height());
    QLinearGradient sky(0, 0, 0, height());
    sky.setColorAt(0, top_);
    sky.setColorAt(1, bottom_);
    painter.fillRect(boundingRect(), sky);
    QRadialGradient light(glowCentre.x() * width(), glowCentre.y() * height(), glowOuter);
    light.setColorAt(glowInner / glowOuter, glow_);
    light.setColorAt(1, transparent(glow_));
    painter.fillRect(boundingRect(), light);
    return image;
}

QSGNode* BackdropItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    auto* node = static_cast<QSGImageNode*>(old);
    if (width() < 1 || height() < 1) {
        delete node;
        return nullptr;
    }
    if (node == nullptr) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        stale_ = true;
    }
    if (stale_) {
        const qreal scale = window()->effectiveDevicePixelRatio();
        const QSize pixels = (QSizeF(width(), height()) * scale).toSize();
        node->setTexture(window()->createTextureFromImage(painted(pixels), QQuickWindow::TextureIsOpaque));
        node->setRect(boundingRect());
        stale_ = false;
    }
    return node;
}

}  // namespace tavrel
