#pragma once

#include <QImage>
#include <QRectF>
#include <QSGTransformNode>

class QQuickWindow;

namespace tavrel {

/// What a frame is put together on: pictures above one another, anew every frame. What the frame before took
/// is used again, so that a frame makes nothing where it shows no more than the one before.
// The software renderer forgets where a plain node stands when one below it changes: hence the transform.
class SceneCanvas : public QSGTransformNode {
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

    /// Less than one step of 8 bits: cannot be seen.
    static constexpr double leastOpacity = 0.004;

    /// Begins a frame.
    virtual void begin() = 0;
    /// One more picture, above the others. What cannot be seen takes nothing. Pictures that are parts of one
    /// image and follow each other cost little.
    virtual void add(const QImage& image, const Placement& placement) = 0;
    /// Ends a frame: shows it, and forgets the images of which none has been seen for long.
    virtual void end() = 0;
};

/// The canvas that suits how `window` is drawn.
[[nodiscard]] SceneCanvas* sceneCanvas(QQuickWindow& window);

}  // namespace tavrel
