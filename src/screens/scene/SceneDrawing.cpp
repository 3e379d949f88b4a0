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
constexpr double discTilt = 0.5;     // how flat the disc's circles look
constexpr double lastOfFall = 0.05;  // of a fall, in which what is left of an icon fades
constexpr double softness = 12;      // points by which the soft ring is wider

/// One frame: what it is drawn from, and the layers from the back to the front.
class Frame {
  public:
    Frame(const SceneState& state, const ScenePictures& pictures, SceneCanvas& canvas)
        : state_(state), pictures_(pictures), canvas_(canvas), size_(state.size * state.scale) {}

    void draw() {
        const DiscLights::Probe probe = DiscLights::orbit(state_.motion.phase, state_.size);
        backdrop();
        if (probe.behind) body(probe);
        disc();
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
        canvas_.add(image, {.centre = centre, .size = {width, height}, .opacity = opacity});
    }
    void light(const DiscLights::Light& light) {
        put(pictures_.spark, at(light.x, light.y), light.diameter, light.diameter, light.opacity);
    }

    void backdrop() {
        const double width = state_.size * 2 * ScenePictures::backdropReach;
        put(pictures_.backdrop, state_.middle, width, width, BlackHole::backdropOpacity(state_.intensity));
    }

    void disc() {
        const double width = size_ * BlackHole::breath(state_.time);
        const double energy = state_.motion.energy;
        const SceneCanvas::Placement whole = {.centre = state_.middle,
                                              .size = {width, width},
                                              .opacity = std::min(0.8 + 0.2 * state_.intensity, 1.0),
                                              .rotation = BlackHole::roll(state_.time) * degrees};
        canvas_.add(pictures_.art, whole);
        put(pictures_.glow, state_.middle, width, width,
            BlackHole::glowOpacity(state_.time, energy) + 0.14 * std::max(state_.intensity - energy, 0.0));
        const double across = width * 0.92;
        canvas_.add(pictures_.sheen, {.centre = state_.middle,
                                      .size = {across, across},
                                      .opacity = 0.3 + 0.15 * energy,
                                      .rotation = -state_.motion.phase * 360 * 0.6,
                                      .squash = 0.36});
        knots();
        canvas_.add(pictures_.shadow, whole);
        // One band of light gives way to the other, and back; whole turns in the span of the phase.
        const double turn = 0.5 + 0.5 * std::sin(state_.motion.phase * 0.143 * 2 * std::numbers::pi);
        SceneCanvas::Placement shine = whole;
        for (std::size_t i = 0; i < pictures_.shines.size(); ++i) {
            shine.opacity = (0.25 + 0.15 * energy) * (i == 0 ? turn : 1 - turn);
            canvas_.add(pictures_.shines.at(i), shine);
        }
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
            flash.opacity *= strength;
            put(pictures_.flash, at(flash.x, flash.y), flash.diameter, flash.diameter, flash.opacity);
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
        const auto pixels = static_cast<double>(pictures_.dust.height());
        const double side = state_.size * 0.05;
        for (const auto& particle : DustFall::particles()) {
            const DustFall::Drawn drawn = DustFall::drawn(particle, state_.time, state_.size);
            canvas_.add(pictures_.dust,
                        {.centre = at(drawn.x, drawn.y),
                         .size = {side * drawn.widthFactor, side * drawn.heightFactor},
                         .opacity = drawn.opacity,
                         .rotation = drawn.rotation * degrees,
                         .part = {static_cast<double>(particle.symbol) * pixels, 0, pixels, pixels}});
        }
    }

    void icon(const SwallowFeed::Event& event) {
        const double age = state_.time - inSeconds(event.start.time_since_epoch());
        if (age < 0 || age >= fallTime(event.bytes)) return;
        const auto whole = SwallowStream::icon(event.bytes, age, event.angle, state_.size);
        if (whole.breakUp <= 0) {
            return put(event.icon, at(whole.x, whole.y), whole.side, whole.side, whole.opacity);
        }
        const double pixels = static_cast<double>(event.icon.width()) / SwallowStream::cellsAcross;
        const double left = std::min((1 - whole.progress) / lastOfFall, 1.0);
        eachCell(whole, event.id, [&](const SwallowStream::Cell& cell, int row, int column) {
            canvas_.add(event.icon, {.centre = at(cell.x, cell.y),
                                     .size = {cell.side, cell.side},
                                     .opacity = left * (1 - 0.8 * cell.flight),
                                     .part = {column * pixels, row * pixels, pixels, pixels}});
        });
        // The light on them after them all, so that a shower is two pictures many times over.
        eachCell(whole, event.id, [&](const SwallowStream::Cell& cell, int, int) {
            if (cell.flight > 0)
                put(pictures_.heat, at(cell.x, cell.y), cell.side, cell.side, left * cell.glow * 0.6);
        });
    }

    template <typename Draw>
    static void eachCell(const SwallowStream::Icon& icon, std::int64_t id, const Draw& draw) {
        for (int row = 0; row < SwallowStream::cellsAcross; ++row) {
            for (int column = 0; column < SwallowStream::cellsAcross; ++column) {
                draw(SwallowStream::cell(icon, id, row, column), row, column);
            }
        }
    }

    void body(const DiscLights::Probe& probe) {
        put(pictures_.probe, at(probe.x, probe.y), probe.diameter, probe.diameter, probe.opacity);
    }

    void shockwave() {
        if (!state_.shock) return;
        const double age = state_.time - state_.shock->start;
        const auto ring = DiscLights::shockwave(age, state_.shock->strength, state_.size);
        if (!ring) return;
        const auto drawn = [&](double line, double opacity) {
            const double across = 2 * ring->radius + line;
            put(pictures_.ring(line / ring->radius), at(0, -ring->raised), across, across, opacity);
        };
        drawn(ring->lineWidth, ring->opacity);
        drawn(ring->lineWidth + softness, ring->opacity * 0.35);
    }

    const SceneState& state_;
    const ScenePictures& pictures_;
    SceneCanvas& canvas_;
    double size_;  // of the hole as it has grown
};

}  // namespace

void drawScene(const SceneState& state, const ScenePictures& pictures, SceneCanvas& canvas) {
    canvas.begin();
    Frame(state, pictures, canvas).draw();
    canvas.end();
}

}  // namespace tavrel
