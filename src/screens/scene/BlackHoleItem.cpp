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

/// A window that is drawn larger does not need new pictures at each step.
int pictureSide(double pixels) {
    constexpr int step = 64;
    return static_cast<int>(std::ceil(pixels / step)) * step;
}

double landingPulse(std::span<const SwallowFeed::Event> events, double now) {
    double pulse = 0;
    for (const auto& event : events)
        pulse += BlackHole::landing({event.bytes, inSeconds(event.start.time_since_epoch())}, now);
    return pulse;
}

std::optional<Shock> shockOf(const Shockwave* wave) {
    if (wave == nullptr || !wave->start()) return std::nullopt;
    return Shock{inSeconds(wave->start()->time_since_epoch()), wave->strength()};
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
    auto* canvas = static_cast<SceneCanvas*>(old);
    if (size < 1) {
        delete canvas;
        return nullptr;
    }
    if (canvas == nullptr) canvas = sceneCanvas(*window());
    const int side = pictureSide(size * window()->effectiveDevicePixelRatio());
    if (!pictures_ || pictureSide_ != side) {
        pictures_ = std::make_unique<ScenePictures>(side, glow_);
        pictureSide_ = side;
    }

    const double now = inSeconds(std::chrono::system_clock::now().time_since_epoch());
    const MotionTargets targets = {spinning_, suction_, open_, growth_};
    SceneState state = {
        .time = animated_ ? now : stillTime, .size = size, .middle = {width() / 2, height() / 2}};
    if (animated_) {
        motion_.step(now, targets);
        state.shock = BlackHole::currentShock(shockOf(shockwave_), now, animated_, size);
        state.scanning = scanning_;
        if (feed_) state.events = feed_->events();
        state.pulse = landingPulse(state.events, now);
    } else {
        motion_ = {.last = now, .phase = motion_.phase, .energy = suction_ ? 1 : open_, .growth = growth_};
    }
    state.motion = motion_;
    state.intensity = BlackHole::intensity(motion_.energy, state.pulse, BlackHole::kick(state.shock, now));
    state.scale = BlackHole::scale(motion_.growth, state.intensity, state.pulse);
    drawScene(state, *pictures_, *canvas);
    return canvas;
}

}  // namespace tavrel
