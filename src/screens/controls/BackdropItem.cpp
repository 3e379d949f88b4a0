#include "screens/controls/BackdropItem.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QQuickWindow>
#include <QRadialGradient>
#include <QRgba64>
#include <QSGImageNode>

namespace tavrel {

namespace {

constexpr QPointF glowCentre(0.8, 0.15);  // parts of the view
constexpr qreal glowInner = 10;           // points
constexpr qreal glowOuter = 520;

QColor transparent(QColor colour) {
    colour.setAlpha(0);
    return colour;
}

/// The order in which the pixels of a square round up: Bayer's matrix.
constexpr unsigned threshold(int x, int y) {
    unsigned order = 0;
    for (int bit = 0; bit < 3; ++bit) {
        const unsigned across = static_cast<unsigned>(x >> bit) & 1U;
        const unsigned along = static_cast<unsigned>(y >> bit) & 1U;
        order = order * 4 + (((across ^ along) << 1U) | along);
    }
    return order;  // 0 to 63
}

/// 8 bits of 16, rounded by a pattern: so wide a gradient would show its steps.
QImage dithered(const QImage& deep) {
    QImage image(deep.size(), QImage::Format_RGB32);
    constexpr unsigned perStep = 257;  // of 16 bits in one step of 8
    for (int y = 0; y < deep.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgba64*>(deep.constScanLine(y));
        auto* to = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < deep.width(); ++x) {
            const unsigned up = threshold(x, y) * perStep / 64;
            const auto level = [up](unsigned channel) { return static_cast<int>((channel + up) / perStep); };
            to[x] = qRgb(level(from[x].red()), level(from[x].green()), level(from[x].blue()));
        }
    }
    return image;
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

void BackdropItem::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickItem::itemChange(change, data);
    if (change != ItemDevicePixelRatioHasChanged) return;
    stale_ = true;
    update();
}

QImage BackdropItem::painted(const QSize& pixels) const {
    QImage image(pixels, QImage::Format_RGBX64);
    QPainter painter(&image);
    painter.scale(pixels.width() / width(), pixels.height() / height());
    QLinearGradient sky(0, 0, 0, height());
    sky.setColorAt(0, upper_);
    sky.setColorAt(1, lower_);
    painter.fillRect(boundingRect(), sky);
    QRadialGradient light(glowCentre.x() * width(), glowCentre.y() * height(), glowOuter);
    light.setColorAt(glowInner / glowOuter, glow_);
    light.setColorAt(1, transparent(glow_));
    painter.fillRect(boundingRect(), light);
    painter.end();
    return dithered(image);
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
