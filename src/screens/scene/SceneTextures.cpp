#include "screens/scene/SceneTextures.h"

#include <QQuickWindow>
#include <algorithm>

namespace tavrel {

namespace {

constexpr int longUnseen = 300;  // frames

}  // namespace

QSGTexture* SceneTextures::of(const QImage& image) {
    Entry& found = entries_[image.cacheKey()];
    if (!found.texture) {
        found.texture.reset(window_.createTextureFromImage(image));
        found.texture->setFiltering(QSGTexture::Linear);
    }
    found.unseen = 0;
    return found.texture.get();
}

bool SceneTextures::isStale(const Entry& entry) {
    return entry.unseen > longUnseen;
}

bool SceneTextures::hasStale() const {
    return std::any_of(entries_.begin(), entries_.end(),
                       [](const auto& entry) { return isStale(entry.second); });
}

void SceneTextures::dropStale() {
    std::erase_if(entries_, [](const auto& entry) { return isStale(entry.second); });
}

void SceneTextures::age() {
    for (auto& [key, entry] : entries_) ++entry.unseen;
}

}  // namespace tavrel
