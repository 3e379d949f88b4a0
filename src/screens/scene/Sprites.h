#pragma once

#include "screens/scene/SceneCanvas.h"
#include "screens/scene/SceneTextures.h"

#include <QSGImageNode>
#include <QSGOpacityNode>
#include <vector>

namespace tavrel {

/// The canvas of Qt's own rasteriser, which draws no geometry of ours: a node for each picture.
class Sprites final : public SceneCanvas {
  public:
    explicit Sprites(QQuickWindow& window) : window_(window), textures_(window) {}

    void begin() override { used_ = 0; }
    void add(const QImage& image, const Placement& placement) override;
    void end() override;

  private:
    struct Sprite {
        QSGOpacityNode* opacity;
        QSGTransformNode* transform;
        QSGImageNode* image;
    };

    Sprite& next();

    QQuickWindow& window_;
    std::vector<Sprite> sprites_;
    std::size_t used_ = 0;
    SceneTextures textures_;
};

}  // namespace tavrel
