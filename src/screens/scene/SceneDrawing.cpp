#include "screens/scene/SceneDrawing.h"

#include "presentation/DiscLights.h"
#include "presentation/DustFall.h"
#include "presentation/FallTime.h"
#include "presentation/SwallowStream.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tavrel {

namespace {

constexpr double degrees = 180 / std::numbers::pi;
constexpr double discTilt = 0.5;  // how flat the disc's circles look

double secondsOf(Instant moment) {
    return std::chrono::duration<double>(moment.time_since_epoch()).count();
}

/// One frame: what it is drawn from, and the layers from the back to the front.
class Frame {
  public:
    Frame(const SceneState& state, ScenePictures& pictures, Sprites& sprites)
        : state_(state), pictures_(pictures), sprites_(sprites), size_(state.size * state.scale) {}

    void draw() {
        const DiscLights::Probe probe = DiscLights::orbit(state_.motion.phase, state_.size);
        backdrop();
        if (probe.behind) body(probe);
        disc();
        knots();
        flashes();
        if (state_.scanning) {
            ripples();
            dust();
        }
        for (const SwallowFeed::Event& event : state_.events) icon(event);
        if (!probe.behind) body(probe);
        shockwave();
    }

  private:
    [[nodiscard]] QPointF at(double x, double y) const { return state_.middle + QPointF(x, y); }
    void put(const QImage& image, QPointF centre, double width, double height, double opacity) {
        sprites_.add(image, {.centre = centre, .size = {width, height}, .opacity = opacity});
    }
    void light(const DiscLights::Light& light) {
        put(pictures_.spark, at(light.x, light.y), light.diameter, light.diameter, light.opacity);
    }

    void backdrop() {
        const double width = state_.size * 1.7;
        put(pictures_.backdrop, state_.middle, width, width,
            BlackHole::backdropOpacity(state_.intensity) * 0.55);
    }

    void disc() {
        const double width = size_ * BlackHole::breath(state_.time);
        const double energy = state_.motion.energy;
        const double lit = std::min(0.8 + 0.2 * state_.intensity, 1.0);
        sprites_.add(pictures_.art, {.centre = state_.middle,
                                     .size = {width, width},
                                     .opacity = lit,
                                     .rotation = BlackHole::roll(state_.time) * degrees});
        put(pictures_.glow, state_.middle, width * 1.06, width * 1.06,
            BlackHole::glowOpacity(state_.time, energy) + 0.14 * std::max(state_.intensity - energy, 0.0));
        const double across = width * 0.92;
        sprites_.add(pictures_.sheen, {.centre = state_.middle,
                                       .size = {across, across},
                                       .opacity = (0.3 + 0.15 * energy) * 0.8,
                                       .rotation = -state_.motion.phase * 360 * 0.6,
                                       .squash = 0.36});
    }

    void knots() {
        for (const auto& knot : DiscLights::knots(state_.motion.phase, size_)) {
            DiscLights::Light lit = knot;
            lit.diameter *= 1.6;
            lit.opacity *= 0.35 + 0.65 * std::min(state_.motion.energy, 1.0);
            light(lit);
        }
    }

    void flashes() {
        const double strength = std::min(state_.motion.energy, 1.0);
        for (auto flash : DiscLights::flashes(state_.time, size_)) {
            flash.opacity *= 0.6 * strength;
            light(flash);
        }
    }

    void ripples() {
        for (const auto& ripple : DiscLights::ripples(state_.time, size_)) {
            const double across = 2 * ripple.radius;
            put(pictures_.ring(DiscLights::rippleStroke / ripple.radius), state_.middle, across,
                across * discTilt, ripple.opacity);
        }
    }

    void dust() {
        for (const auto& particle : DustFall::particles()) {
            const DustFall::Drawn drawn = DustFall::drawn(particle, state_.time, state_.size);
            const double side = state_.size * 0.045;
            put(pictures_.symbol(particle.symbol), at(drawn.x, drawn.y), side * drawn.widthFactor,
                side * drawn.heightFactor, drawn.opacity * 0.85);
        }
    }

    void icon(const SwallowFeed::Event& event) {
        const double age = state_.time - secondsOf(event.start);
        if (age < 0 || age >= fallTime(event.bytes)) return;
        const auto whole = SwallowStream::icon(event.bytes, age, event.angle, state_.size);
        if (whole.breakUp <= 0) {
            return put(event.icon, at(whole.x, whole.y), whole.side, whole.side, whole.opacity);
        }
        for (int row = 0; row < SwallowStream::cellsAcross; ++row) {
            for (int column = 0; column < SwallowStream::cellsAcross; ++column) {
                cell(event, SwallowStream::cell(whole, event.id, row, column), row, column);
            }
        }
    }

    void cell(const SwallowFeed::Event& event, const SwallowStream::Cell& cell, int row, int column) {
        const double pixels = static_cast<double>(event.icon.width()) / SwallowStream::cellsAcross;
        sprites_.add(event.icon, {.centre = at(cell.x, cell.y),
                                  .size = {cell.side, cell.side},
                                  .opacity = 1 - 0.8 * cell.flight,
                                  .part = {column * pixels, row * pixels, pixels, pixels}});
        if (cell.flight > 0 && cell.glow > 0 && (row + column) % 4 == 0) {
            put(pictures_.spark, at(cell.x, cell.y), cell.side * 2.4, cell.side * 2.4, cell.glow * 0.6);
        }
    }

    void body(const DiscLights::Probe& probe) {
        const double side = probe.diameter * (probe.behind ? 0.8 : 1);
        put(pictures_.probe, at(probe.x, probe.y), side, side, probe.opacity);
    }

    void shockwave() {
        if (!state_.shock) return;
        const double age = state_.time - state_.shock->start;
        const auto ring = DiscLights::shockwave(age, state_.shock->strength, state_.size);
        if (!ring) return;
        const double across = 2 * ring->radius + ring->lineWidth;
        const QPointF centre = at(0, -ring->raised);
        const double line = ring->lineWidth / ring->radius;
        put(pictures_.ring(line), centre, across, across, ring->opacity);
        put(pictures_.ring(line * 3), centre, across * 1.03, across * 1.03, ring->opacity * 0.35);
    }

    const SceneState& state_;
    ScenePictures& pictures_;
    Sprites& sprites_;
    double size_;  // of the hole as it has grown
};

}  // namespace

void drawScene(const SceneState& state, ScenePictures& pictures, Sprites& sprites) {
    sprites.begin();
    Frame(state, pictures, sprites).draw();
    sprites.end();
}

}  // namespace tavrel
