#include "screens/controls/StarfieldItem.h"

#include "presentation/ShootingStar.h"
#include "presentation/Stars.h"
#include "screens/controls/StarNodes.h"

#include <QQuickWindow>
#include <QSGRendererInterface>
#include <algorithm>

namespace tavrel {

namespace {

constexpr double starRate = 12;      // pictures a second
constexpr double longestStep = 0.2;  // seconds that the stars move on by at once, however long they rested
constexpr Starfield stillSky = {.count = 120, .seed = 0x5DEECE66D};

}  // namespace

StarfieldItem::StarfieldItem(QQuickItem* parent)
    : QQuickItem(parent),
      time_(PacedTicker::now()),
      moved_(time_),
      ticker_({.fps = starRate, .shootingStars = true}) {
    setFlag(ItemHasContents);
    connect(&ticker_, &PacedTicker::tick, this, [this] { drawAt(PacedTicker::now()); });
}

void StarfieldItem::setLive(bool live) {
    if (live_ == live) return;
    live_ = live;
    Q_EMIT liveChanged();
    run();
    drawAt(PacedTicker::now());
}

void StarfieldItem::setPaused(bool paused) {
    if (paused_ == paused) return;
    paused_ = paused;
    Q_EMIT pausedChanged();
    run();
}

void StarfieldItem::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    update();
}

void StarfieldItem::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickItem::itemChange(change, data);
    if (change == ItemVisibleHasChanged || change == ItemSceneChange) run();
}

void StarfieldItem::drawAt(double time) {
    moved_ += std::clamp(time - time_, 0.0, longestStep);
    time_ = time;
    update();
}

void StarfieldItem::run() {
    ticker_.setRunning(live_ && !paused_ && isVisible() && window() != nullptr);
}

std::vector<DrawnStar> StarfieldItem::starsNow() const {
    std::vector<DrawnStar> drawn;
    if (live_) {
        const auto stars = LiveStarfield::stars();
        drawn.reserve(stars.size());
        for (const Star& star : stars) {
            drawn.push_back(LiveStarfield::drawn(star, {width(), height()}, moved_));
        }
    } else {
        drawn.reserve(stillSky.count);
        for (const Star& star : stillSky.stars()) {
            drawn.push_back({star.x * width(), star.y * height(), star.r, star.alpha});
        }
    }
    return drawn;
}

QSGNode* StarfieldItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    if (width() < 1 || height() < 1) {
        delete old;
        return nullptr;
    }
    const auto streak = live_ ? shootingStar({width(), height()}, time_) : std::nullopt;
    if (window()->rendererInterface()->graphicsApi() == QSGRendererInterface::Software) {
        return StarNodes::rectangles(old, *window(), starsNow(), streak);
    }
    return StarNodes::geometry(old, starsNow(), streak);
}

}  // namespace tavrel
