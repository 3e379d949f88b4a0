#pragma once

#include <QImage>
#include <QRectF>
#include <QSGImageNode>
#include <QSGOpacityNode>
#include <QSGTexture>
#include <QSGTransformNode>
#include <map>
#include <memory>
#include <vector>

class QQuickWindow;

namespace tavrel {

/// Pictures that lie above one another, anew every frame, as nodes that both renderers draw. The nodes of the
/// frame before are used again, so that a frame makes none where it shows no more than the one before.
// The software renderer forgets where a plain node stands when one below it changes: hence the transform.
class Sprites final : public QSGTransformNode {
  public:
    /// Where and how a picture is drawn; points of the item.
    struct Placement {
        QPointF centre;
        QSizeF size;
        double opacity = 1;
        double rotation = 0;  // degrees, clockwise
        QRectF part;          // of the picture, in its pixels; the whole where it is null
        double squash = 1;    // of the height, after the rotation
    };

    explicit Sprites(QQuickWindow& window) : window_(window) {}

    /// Begins a frame.
    void begin() { used_ = 0; }
    /// One more picture, above the others. What cannot be seen takes no node.
    void add(const QImage& image, const Placement& placement);
    /// Ends a frame: hides what was not used, and forgets the pictures of which none has been seen for long.
    void end();

  private:
    struct Sprite {
        QSGOpacityNode* opacity;
        QSGTransformNode* transform;
        QSGImageNode* image;
    };
    struct Texture {
        std::unique_ptr<QSGTexture> texture;
        int unseen = 0;  // frames
    };

    Sprite& next();
    QSGTexture* texture(const QImage& image);

    QQuickWindow& window_;
    std::vector<Sprite> sprites_;
    std::size_t used_ = 0;
    std::map<qint64, Texture> textures_;  // by the image's key
};

}  // namespace tavrel
