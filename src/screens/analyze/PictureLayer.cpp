#include "screens/analyze/PictureLayer.h"

#include <QQuickWindow>

namespace tavrel {

void PictureLayer::show(QQuickWindow& window, const QImage& image, const QRectF& place) {
    setOpacity(image.isNull() ? 0 : 1);
    if (image.isNull()) return;
    const bool isNew = node_ == nullptr;
    if (isNew) {
        node_ = window.createImageNode();
        node_->setOwnsTexture(true);
        node_->setFiltering(QSGTexture::Linear);
        node_->setFlag(OwnedByParent);
    }
    node_->setTexture(window.createTextureFromImage(image));
    node_->setSourceRect(image.rect());
    node_->setRect(place);
    if (isNew) appendChildNode(node_);
}

}  // namespace tavrel
