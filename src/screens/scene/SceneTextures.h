#pragma once

#include <QImage>
#include <QSGTexture>
#include <map>
#include <memory>

class QQuickWindow;

namespace tavrel {

/// The textures of the images that frames show, each made once and kept while it is seen.
class SceneTextures {
  public:
    explicit SceneTextures(QQuickWindow& window) : window_(window) {}

    [[nodiscard]] QSGTexture* of(const QImage& image);

    /// Whether some have not been asked for in a long time.
    [[nodiscard]] bool hasStale() const;
    /// Forgets those; nothing may hold one of them any more.
    void dropStale();
    /// One more frame has passed.
    void age();

  private:
    struct Entry {
        std::unique_ptr<QSGTexture> texture;
        int unseen = 0;  // frames
    };

    [[nodiscard]] static bool isStale(const Entry& entry);

    QQuickWindow& window_;
    std::map<qint64, Entry> entries_;  // by the image's key
};

}  // namespace tavrel
