#pragma once

#include <QImage>
#include <QSGImageNode>
#include <QSGOpacityNode>

class QQuickWindow;

namespace tavrel {

/// One picture of a scene that changes now and then.
class PictureLayer final : public QSGOpacityNode {
  public:
    /// Nothing is seen where `image` is null. `place` is in points of the item.
    void show(QQuickWindow& window, const QImage& image, const QRectF& place);

  private:
    QSGImageNode* node_ = nullptr;  // made when first needed: one without a picture cannot be drawn
};

}  // namespace tavrel
