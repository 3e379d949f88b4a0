#pragma once

#include "screens/scene/SceneCanvas.h"
#include "screens/scene/SceneTextures.h"

#include <QSGGeometryNode>
#include <memory>
#include <vector>

namespace tavrel {

/// The canvas of a graphics device: pictures of one image that follow each other are one node, however many
/// they are.
class SpriteBatches final : public SceneCanvas {
  public:
    explicit SpriteBatches(QQuickWindow& window);
    ~SpriteBatches() override;

    void begin() override;
    void add(const QImage& image, const Placement& placement) override;
    void end() override;

  private:
    struct Vertex {
        float x, y;  // points of the item
        float u, v;  // of the texture, 0 to 1
        float opacity;
    };
    class Batch;

    void close();

    SceneTextures textures_;
    std::vector<std::unique_ptr<Batch>> batches_;
    std::size_t used_ = 0;
    QSGTexture* texture_ = nullptr;  // of the batch that is open
    std::vector<Vertex> vertices_;
};

}  // namespace tavrel
