#include "screens/analyze/OrbitChartItem.h"

#include "core/Text.h"
#include "disk/OrbitReadout.h"
#include "screens/analyze/OrbitNode.h"

#include <QQuickWindow>
#include <algorithm>
#include <cmath>
#include <utility>

namespace tavrel {

namespace {

constexpr double motionRate = 12;  // pictures a second of what always moves
constexpr double lightsRate = 60;  // while the focus moves
constexpr double longestStep = 0.05;
constexpr double stillTime = 7.3;  // seconds; a moment that looks well
constexpr Spring sweep = {.response = 1.0, .damping = 0.88};

QString exact(const std::string& id) {
    return QString::fromStdString(Text::encodePath(id));
}

std::shared_ptr<const OrbitLayout> emptyLayout() {
    return std::make_shared<const OrbitLayout>();
}

}  // namespace

OrbitChartItem::OrbitChartItem(QQuickItem* parent)
    : QQuickItem(parent),
      layout_(emptyLayout()),
      isHeard_(QAccessible::isActive()),
      motionTicker_({.fps = motionRate}),
      lightsTicker_({.fps = lightsRate}) {
    setFlag(ItemHasContents);
    setAcceptHoverEvents(true);
    setAcceptedMouseButtons(Qt::LeftButton);
    connect(this, &OrbitChartItem::motionChanged, this, &OrbitChartItem::run);
    connect(&motionTicker_, &PacedTicker::tick, this, &OrbitChartItem::moveOn);
    connect(&lightsTicker_, &PacedTicker::tick, this, &OrbitChartItem::updateHighlight);
    QAccessible::installActivationObserver(this);
}

OrbitChartItem::~OrbitChartItem() {
    QAccessible::removeActivationObserver(this);
}

void OrbitChartItem::setLayout(std::shared_ptr<const OrbitLayout> layout) {
    if (!layout) layout = emptyLayout();
    if (layout_ == layout || *layout_ == *layout) return;
    layout_ = std::move(layout);
    repaint();
    Q_EMIT layoutChanged();
    speak();
    if (!pointed_.isEmpty() && arcAt(pointer_) != pointed_) point(arcAt(pointer_));
}

QVariant OrbitChartItem::layoutValue() const {
    return QVariant::fromValue(layout_);
}

void OrbitChartItem::setLayoutValue(const QVariant& value) {
    setLayout(value.value<std::shared_ptr<const OrbitLayout>>());
}

QString OrbitChartItem::focusId() const {
    return exact(focusId_);
}

void OrbitChartItem::setFocusId(const QString& id) {
    std::string wanted = Text::decodePath(id.toStdString());
    if (focusId_ == wanted) return;
    focusId_ = std::move(wanted);
    Q_EMIT focusIdChanged();
    litAt_ = PacedTicker::now();
    updateHighlight();
}

void OrbitChartItem::setSweepAge(double seconds) {
    sweepAge_ = seconds;
    Q_EMIT sweepAgeChanged();
    setReveal(std::clamp(sweep.at(seconds), 0.0, 1.0));
}

void OrbitChartItem::setReveal(double reveal) {
    if (reveal_ == reveal) return;
    reveal_ = reveal;
    Q_EMIT revealChanged();
    repaint();
}

// ---- what it shows ----

/// The lights go on, and once more as long as they move.
void OrbitChartItem::updateHighlight() {
    const double now = PacedTicker::now();
    bool moves = false;
    const bool isSeen = isVisible() && window() != nullptr;
    if (animated_ && !paused_ && isSeen) {
        moves = lights_.step(focusId_, std::clamp(now - litAt_, 0.0, longestStep));
    } else {
        lights_.settle(focusId_);
    }
    litAt_ = now;
    lightsTicker_.setRunning(moves);
    repaint();
}

void OrbitChartItem::repaint() {
    arcsStale_ = true;
    update();
}

void OrbitChartItem::moveOn() {
    motionStale_ = true;
    update();
}

void OrbitChartItem::run() {
    const bool moves = animated_ && !paused_ && isVisible() && window() != nullptr;
    motionTicker_.setRunning(moves);
    if (!moves) updateHighlight();
    if (!paused_) moveOn();
}

void OrbitChartItem::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickItem::itemChange(change, data);
    if (change == ItemVisibleHasChanged || change == ItemSceneChange) run();
    if (change == ItemDevicePixelRatioHasChanged) update();
}

void OrbitChartItem::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    update();
    placeSpoken();
}

/// On whole points, so that pictures keep their sharpness.
QRectF OrbitChartItem::square() const {
    const double side = std::floor(std::min(width(), height()));
    return {std::round((width() - side) / 2), std::round((height() - side) / 2), side, side};
}

QSGNode* OrbitChartItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    auto* node = static_cast<OrbitNode*>(old);
    const QRectF place = square();
    if (place.width() < 1) {
        delete node;
        return nullptr;
    }
    if (node == nullptr) node = new OrbitNode(*window());
    if (!node->standsAt(place)) {
        node->resize(place);
        arcsStale_ = motionStale_ = true;
    }
    if (std::exchange(motionStale_, false)) node->showMotion(animated_ ? PacedTicker::now() : stillTime);
    if (std::exchange(arcsStale_, false)) node->showArcs({*layout_, lights_, reveal_});
    return node;
}

// ---- pointer ----

QString OrbitChartItem::arcAt(const QPointF& point) const {
    const QRectF place = square();
    if (place.width() < 1) return {};
    const QPointF apart = (point - place.center()) / (place.width() / 2);
    const auto found = OrbitChart::segmentAt(*layout_, {apart.x(), apart.y()}, reveal_, focused());
    return found ? idOf(*found) : QString();
}

void OrbitChartItem::point(const QString& id) {
    if (pointed_ == id) return;
    const QString before = std::exchange(pointed_, id);
    if (id.isEmpty()) {
        Q_EMIT exited(before);
    } else {
        Q_EMIT hovered(id);
    }
}

void OrbitChartItem::hoverEnterEvent(QHoverEvent* event) {
    hoverMoveEvent(event);
}

void OrbitChartItem::hoverMoveEvent(QHoverEvent* event) {
    pointer_ = event->position();
    point(arcAt(pointer_));
}

void OrbitChartItem::hoverLeaveEvent(QHoverEvent*) {
    point({});
}

void OrbitChartItem::mousePressEvent(QMouseEvent* event) {
    pressed_ = arcAt(event->position());
    event->setAccepted(!pressed_.isEmpty());
}

void OrbitChartItem::mouseReleaseEvent(QMouseEvent* event) {
    const QString pressed = std::exchange(pressed_, {});
    if (!pressed.isEmpty() && arcAt(event->position()) == pressed) Q_EMIT clicked(pressed);
}

/// The second click of a double click: the first has opened another folder.
void OrbitChartItem::mouseDoubleClickEvent(QMouseEvent*) {
    pressed_.clear();
}

// ---- keyboard ----

std::optional<OrbitPlace> OrbitChartItem::focused() const {
    if (focusId_.empty()) return std::nullopt;
    return OrbitChart::find(*layout_, focusId_);
}

QString OrbitChartItem::idOf(const OrbitPlace& place) const {
    return exact(OrbitChart::segment(*layout_, place).id);
}

QString OrbitChartItem::beside(int step) const {
    const auto from = focused();
    return from ? idOf(OrbitChart::neighbour(*layout_, *from, step)) : first();
}

QString OrbitChartItem::towards(OrbitSide side) const {
    const auto from = focused();
    if (!from) return first();
    const auto found = OrbitChart::across(*layout_, *from, side);
    return idOf(found ? *found : *from);
}

QString OrbitChartItem::first() const {
    const auto from = focused();
    const OrbitSide side = from ? from->side : OrbitSide::inner;
    return hasArcs() ? idOf({side, 0}) : QString();
}

QString OrbitChartItem::last() const {
    const auto from = focused();
    const OrbitSide side = from ? from->side : OrbitSide::inner;
    return hasArcs() ? idOf({side, OrbitChart::segments(*layout_, side).size() - 1}) : QString();
}

// ---- screen reader ----

void OrbitChartItem::accessibilityActiveChanged(bool active) {
    isHeard_ = active;
    speak();
}

void OrbitChartItem::speak() {
    QStringList all;
    if (isHeard_) {
        for (const auto* ring : {&layout_->inner, &layout_->outer}) {
            for (const OrbitSegment& segment : *ring)
                all.append(QString::fromStdString(OrbitChart::spoken(*layout_, segment)));
        }
    }
    if (all != spoken_) {
        spoken_ = std::move(all);
        Q_EMIT spokenChanged();
    }
    placeSpoken();
}

void OrbitChartItem::placeSpoken() {
    if (spoken_.isEmpty() && spokenPlaces_.isEmpty()) return;
    spokenPlaces_.clear();
    for (int index = 0; index < spoken_.size(); ++index) spokenPlaces_.append(placeAt(index));
    Q_EMIT spokenPlacesChanged();
}

std::optional<OrbitPlace> OrbitChartItem::placeOf(int index) const {
    auto left = static_cast<std::size_t>(std::max(index, 0));
    for (const OrbitSide side : {OrbitSide::inner, OrbitSide::outer}) {
        const std::size_t count = OrbitChart::segments(*layout_, side).size();
        if (left < count) return OrbitPlace{side, left};
        left -= count;
    }
    return std::nullopt;
}

QString OrbitChartItem::idAt(int index) const {
    const auto place = placeOf(index);
    return place ? idOf(*place) : QString();
}

QRectF OrbitChartItem::placeAt(int index) const {
    const auto place = placeOf(index);
    if (!place) return {};
    const RingArc arc = OrbitChart::ring(place->side).arc(OrbitChart::segment(*layout_, *place), 1, 0);
    // The box of points along the arc is near enough for a finger or a frame around it.
    constexpr int steps = 24;
    double left = 1;
    double top = 1;
    double right = -1;
    double bottom = -1;
    for (int step = 0; step <= steps; ++step) {
        const double angle = arc.startAngle() + (arc.endAngle() - arc.startAngle()) * step / steps;
        for (const double radius : {arc.inner, arc.outer}) {
            left = std::min(left, radius * std::cos(angle));
            right = std::max(right, radius * std::cos(angle));
            top = std::min(top, radius * std::sin(angle));
            bottom = std::max(bottom, radius * std::sin(angle));
        }
    }
    const QRectF whole = square();
    const double unit = whole.width() / 2;
    return {whole.center() + QPointF(left, top) * unit, whole.center() + QPointF(right, bottom) * unit};
}

}  // namespace tavrel
