#include "screens/scene/BlackHoleItem.h"

#include "screens/scene/SceneDrawing.h"

#include <QQuickWindow>
#include <chrono>
#include <cmath>

namespace tavrel {

namespace {

constexpr double frameRate = 60;
/// A still picture shows the hole as it rests, at a moment when it looks well.
constexpr double stillTime = 4.2;  // seconds

double secondsOf(Instant moment) {
    return std::chrono::duration<double>(moment.time_since_epoch()).count();
}

std::vector<Falling> fallingOf(const SwallowFeed* feed) {
    std::vector<Falling> falling;
    if (feed == nullptr) return falling;
    falling.reserve(feed->events().size());
    for (const auto& event : feed->events()) falling.push_back({event.bytes, secondsOf(event.start)});
    return falling;
}

std::optional<Shock> shockOf(const Shockwave* wave) {
    if (wave == nullptr || !wave->start()) return std::nullopt;
    return Shock{secondsOf(*wave->start()), wave->strength()};
}

}  // namespace

BlackHoleItem::BlackHoleItem(QQuickItem* parent) : QQuickItem(parent), ticker_({.fps = frameRate}) {
    setFlag(ItemHasContents);
    connect(this, &BlackHoleItem::changed, this, &BlackHoleItem::stand);
    connect(&ticker_, &PacedTicker::tick, this, &QQuickItem::update);
}

BlackHoleItem::~BlackHoleItem() = default;

void BlackHoleItem::setGlow(const QColor& glow) {
    if (glow_ == glow) return;
    glow_ = glow;
    pictures_.reset();
    Q_EMIT changed();
}

void BlackHoleItem::setFeed(SwallowFeed* feed) {
    if (feed_ == feed) return;
    feed_ = feed;
    Q_EMIT changed();
}

void BlackHoleItem::setShockwave(Shockwave* shockwave) {
    if (shockwave_ == shockwave) return;
    shockwave_ = shockwave;
    Q_EMIT changed();
}

void BlackHoleItem::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickItem::itemChange(change, data);
    if (change == ItemVisibleHasChanged || change == ItemSceneChange) stand();
}

void BlackHoleItem::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    update();
}

/// Runs while it may, and shows at once what has changed.
void BlackHoleItem::stand() {
    ticker_.setRunning(animated_ && !paused_ && isVisible() && window() != nullptr);
    if (!paused_) update();
}

QSGNode* BlackHoleItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    const double size = std::min(width(), height());
    auto* sprites = static_cast<Sprites*>(old);
    if (size < 1) {
        delete sprites;
        return nullptr;
    }
    if (sprites == nullptr) sprites = new Sprites(*window());
    const int side = static_cast<int>(std::ceil(size * window()->effectiveDevicePixelRatio()));
    if (!pictures_ || pictureSide_ != side) {
        pictures_ = std::make_unique<ScenePictures>(side, glow_);
        pictureSide_ = side;
    }

    const double now = secondsOf(std::chrono::system_clock::now());
    const MotionTargets targets = {spinning_, suction_, open_, growth_};
    SceneState state = {
        .time = animated_ ? now : stillTime, .size = size, .middle = {width() / 2, height() / 2}};
    if (animated_) {
        motion_.step(now, targets);
        state.shock = BlackHole::currentShock(shockOf(shockwave_), now, animated_, size);
        state.pulse = BlackHole::landingPulse(fallingOf(feed_), now);
        state.scanning = scanning_;
        if (feed_) state.events = feed_->events();
    } else {
        motion_ = {.last = now, .phase = motion_.phase, .energy = suction_ ? 1 : open_, .growth = growth_};
    }
    state.motion = motion_;
    state.intensity = BlackHole::intensity(motion_.energy, state.pulse, BlackHole::kick(state.shock, now));
    state.scale = BlackHole::scale(motion_.growth, state.intensity, state.pulse);
    drawScene(state, *pictures_, *sprites);
    return sprites;
}

}  // namespace tavrel
