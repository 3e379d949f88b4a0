#include "screens/scene/SpriteBatches.h"

#include <QSGMaterial>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numbers>

namespace tavrel {

namespace {

constexpr int corners = 4;  // of a picture
constexpr std::array<quint16, 6> triangles = {0, 1, 2, 2, 1, 3};
constexpr std::size_t most = 16'000;  // pictures of one node, as its indices have 16 bits

/// A texture whose opacity is told for each corner.
class SpriteMaterial final : public QSGMaterial {
  public:
    SpriteMaterial() { setFlag(Blending); }

    [[nodiscard]] QSGMaterialType* type() const override {
        static QSGMaterialType unique;
        return &unique;
    }
    [[nodiscard]] QSGMaterialShader* createShader(QSGRendererInterface::RenderMode) const override;
    [[nodiscard]] int compare(const QSGMaterial* other) const override {
        const auto* theirs = static_cast<const SpriteMaterial*>(other)->texture;
        if (texture == theirs) return 0;
        return std::less<>()(texture, theirs) ? -1 : 1;
    }

    QSGTexture* texture = nullptr;
};

class SpriteShader final : public QSGMaterialShader {
  public:
    SpriteShader() {
        setShaderFileName(VertexStage, QStringLiteral(":/shaders/sprite.vert.qsb"));
        setShaderFileName(FragmentStage, QStringLiteral(":/shaders/sprite.frag.qsb"));
    }

    bool updateUniformData(RenderState& state, QSGMaterial*, QSGMaterial*) override {
        constexpr int matrixSize = 64;
        if (state.isMatrixDirty())
            std::memcpy(state.uniformData()->data(), state.combinedMatrix().constData(), matrixSize);
        if (state.isOpacityDirty()) {
            const float opacity = state.opacity();
            std::memcpy(state.uniformData()->data() + matrixSize, &opacity, sizeof opacity);
        }
        return true;
    }

    void updateSampledImage(RenderState& state, int, QSGTexture** texture, QSGMaterial* material,
                            QSGMaterial*) override {
        *texture = static_cast<SpriteMaterial*>(material)->texture;
        (*texture)->commitTextureOperations(state.rhi(), state.resourceUpdateBatch());
    }
};

QSGMaterialShader* SpriteMaterial::createShader(QSGRendererInterface::RenderMode) const {
    return new SpriteShader;
}

const QSGGeometry::AttributeSet& attributes() {
    static const std::array<QSGGeometry::Attribute, 3> each = {
        QSGGeometry::Attribute::create(0, 2, QSGGeometry::FloatType, true),
        QSGGeometry::Attribute::create(1, 2, QSGGeometry::FloatType),
        QSGGeometry::Attribute::create(2, 1, QSGGeometry::FloatType),
    };
    static const QSGGeometry::AttributeSet set = {each.size(), 5 * sizeof(float), each.data()};
    return set;
}

}  // namespace

class SpriteBatches::Batch final : public QSGGeometryNode {
  public:
    Batch() : geometry_(attributes(), 0, 0, QSGGeometry::UnsignedShortType) {
        geometry_.setDrawingMode(QSGGeometry::DrawTriangles);
        geometry_.setVertexDataPattern(QSGGeometry::StreamPattern);
        setGeometry(&geometry_);
        setMaterial(&material_);
    }

    void show(QSGTexture* texture, const std::vector<Vertex>& vertices) {
        const auto count = static_cast<int>(vertices.size());
        if (geometry_.vertexCount() < count) index(std::min(2 * count, static_cast<int>(most) * corners));
        auto* kept = static_cast<Vertex*>(geometry_.vertexData());
        std::copy(vertices.begin(), vertices.end(), kept);
        // What the frame before had more of is drawn without an extent.
        std::fill(kept + count, kept + geometry_.vertexCount(), Vertex{});
        markDirty(DirtyGeometry);
        if (material_.texture != texture) {
            material_.texture = texture;
            markDirty(DirtyMaterial);
        }
    }

  private:
    void index(int vertices) {
        const int pictures = vertices / corners;
        geometry_.allocate(vertices, pictures * static_cast<int>(triangles.size()));
        quint16* index = geometry_.indexDataAsUShort();
        for (int picture = 0; picture < pictures; ++picture) {
            for (const quint16 corner : triangles)
                *index++ = static_cast<quint16>(picture * corners + corner);
        }
    }

    QSGGeometry geometry_;
    SpriteMaterial material_;
};

SpriteBatches::SpriteBatches(QQuickWindow& window) : textures_(window) {}

SpriteBatches::~SpriteBatches() {
    removeAllChildNodes();  // they belong to the list
}

void SpriteBatches::begin() {
    used_ = 0;
    texture_ = nullptr;
    vertices_.clear();
}

void SpriteBatches::add(const QImage& image, const Placement& placement) {
    if (placement.opacity < leastOpacity || image.isNull()) return;
    QSGTexture* texture = textures_.of(image);
    if (texture != texture_ || vertices_.size() >= most * corners) close();
    texture_ = texture;

    const double turn = placement.rotation * std::numbers::pi / 180;
    const double cosine = std::cos(turn);
    const double sine = std::sin(turn);
    const QRectF part = placement.part.isNull() ? QRectF(image.rect()) : placement.part;
    const QSizeF whole = image.size();
    const auto opacity = static_cast<float>(std::min(placement.opacity, 1.0));
    for (const double down : {0.0, 1.0}) {
        for (const double right : {0.0, 1.0}) {
            const double x = (right - 0.5) * placement.size.width();
            const double y = (down - 0.5) * placement.size.height();
            vertices_.push_back({
                .x = static_cast<float>(placement.centre.x() + x * cosine - y * sine),
                .y = static_cast<float>(placement.centre.y() + (x * sine + y * cosine) * placement.squash),
                .u = static_cast<float>((part.x() + right * part.width()) / whole.width()),
                .v = static_cast<float>((part.y() + down * part.height()) / whole.height()),
                .opacity = opacity,
            });
        }
    }
}

/// Gives what was gathered to a node.
void SpriteBatches::close() {
    if (vertices_.empty()) return;
    if (used_ == batches_.size()) {
        batches_.push_back(std::make_unique<Batch>());
        batches_.back()->setFlag(OwnedByParent, false);
    }
    Batch& batch = *batches_[used_++];
    batch.show(texture_, vertices_);
    if (batch.parent() == nullptr) appendChildNode(&batch);
    vertices_.clear();
}

void SpriteBatches::end() {
    close();
    for (std::size_t i = used_; i < batches_.size() && batches_[i]->parent() != nullptr; ++i) {
        removeChildNode(batches_[i].get());
    }
    if (textures_.hasStale()) {
        batches_.resize(used_);
        textures_.dropStale();
    }
    textures_.age();
}

}  // namespace tavrel
