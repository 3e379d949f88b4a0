#include "screens/scene/Sprites.h"

#include <QMatrix4x4>
#include <QQuickWindow>
#include <algorithm>

namespace tavrel {

void Sprites::add(const QImage& image, const Placement& placement) {
    if (placement.opacity < leastOpacity || image.isNull()) return;
    Sprite& sprite = next();
    sprite.opacity->setOpacity(std::min(placement.opacity, 1.0));
    sprite.image->setTexture(textures_.of(image));
    sprite.image->setSourceRect(placement.part.isNull() ? QRectF(image.rect()) : placement.part);
    const QSizeF& size = placement.size;
    sprite.image->setRect(QRectF(-size.width() / 2, -size.height() / 2, size.width(), size.height()));
    QMatrix4x4 matrix;
    matrix.translate(static_cast<float>(placement.centre.x()), static_cast<float>(placement.centre.y()));
    if (placement.squash != 1) matrix.scale(1, static_cast<float>(placement.squash));
    if (placement.rotation != 0) matrix.rotate(static_cast<float>(placement.rotation), 0, 0, 1);
    if (sprite.transform->matrix() != matrix) sprite.transform->setMatrix(matrix);
    // A node joins the others whole: the software renderer looks at it at once.
    if (sprite.opacity->parent() == nullptr) appendChildNode(sprite.opacity);
}

void Sprites::end() {
    for (std::size_t i = used_; i < sprites_.size(); ++i) {
        if (sprites_[i].opacity->opacity() > 0) sprites_[i].opacity->setOpacity(0);
    }
    if (textures_.hasStale()) {
        // A hidden node may still hold one of them: nodes beyond the used ones go as well.
        while (sprites_.size() > used_) {
            delete sprites_.back().opacity;
            sprites_.pop_back();
        }
        textures_.dropStale();
    }
    textures_.age();
}

Sprites::Sprite& Sprites::next() {
    if (used_ == sprites_.size()) {
        const Sprite made = {new QSGOpacityNode, new QSGTransformNode, window_.createImageNode()};
        made.image->setFiltering(QSGTexture::Linear);
        made.image->setFlag(QSGNode::OwnedByParent);
        made.transform->setFlag(QSGNode::OwnedByParent);
        made.transform->appendChildNode(made.image);
        made.opacity->appendChildNode(made.transform);
        made.opacity->setFlag(QSGNode::OwnedByParent);
        sprites_.push_back(made);
    }
    return sprites_[used_++];
}

}  // namespace tavrel
