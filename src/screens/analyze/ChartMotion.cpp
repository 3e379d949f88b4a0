#include "screens/analyze/ChartMotion.h"

#include "disk/RingArc.h"
#include "screens/scene/Painting.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

namespace tavrel {

namespace {

constexpr std::size_t steps = 1024;  // of the circle, in tables
constexpr double streakWidth = 1.3;  // points
constexpr double horizonRoom = 7;    // points beside the horizon that its lines may need
constexpr double fadeIn = 0.08;      // of the unit, at the disk's inner edge
constexpr double fadeOut = 0.16;

/// Light, not yet multiplied by its opacity.
struct Light {
    double red, green, blue, alpha;
};
constexpr Light white = {1, 1, 1, 1};
constexpr Light peach = {1, 0.78, 0.62, 1};
constexpr Light ember = {1, 0.55, 0.24, 1};  // the disk where it glows less

constexpr Light faded(const Light& light, double alpha) {
    return {light.red, light.green, light.blue, light.alpha * alpha};
}

Light mixed(const Light& from, const Light& to, double part) {
    const auto mix = [part](double a, double b) { return a + (b - a) * part; };
    return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue),
            mix(from.alpha, to.alpha)};
}

struct Stop {
    double place;
    Light light;
};
constexpr std::array sheenStops = {
    Stop{0.00, faded(ember, 0.0)}, Stop{0.06, faded(ember, 0.0)}, Stop{0.20, faded(ember, 0.9)},
    Stop{0.50, faded(ember, 0.0)}, Stop{0.56, faded(peach, 0.9)}, Stop{0.70, faded(ember, 0.5)},
    Stop{1.00, faded(ember, 0.0)},
};
constexpr std::array rimStops = {
    Stop{0.00, white}, Stop{0.25, peach}, Stop{0.50, faded(white, 0.7)}, Stop{0.75, peach}, Stop{1.00, white},
};

using Circle = std::array<Light, steps>;

/// The stops all round the circle.
Circle around(std::span<const Stop> stops) {
    Circle circle;
    std::size_t next = 1;
    for (std::size_t i = 0; i < steps; ++i) {
        const double place = static_cast<double>(i) / steps;
        while (stops[next].place < place) ++next;
        const Stop& from = stops[next - 1];
        const Stop& to = stops[next];
        circle.at(i) = mixed(from.light, to.light, (place - from.place) / (to.place - from.place));
    }
    return circle;
}

std::size_t stepAt(double turn) {
    const double turns = turn - std::floor(turn);
    return std::min(static_cast<std::size_t>(turns * steps), steps - 1);
}

/// With its colours multiplied by its opacity, as pixels have them.
QRgb pixelOf(const Light& light) {
    const auto level = [&](double part) { return static_cast<int>(std::lround(part * light.alpha * 255)); };
    return qRgba(level(light.red), level(light.green), level(light.blue), level(1));
}

/// All four channels times `part` of 256.
QRgb scaled(QRgb pixel, std::uint32_t part) {
    constexpr std::uint32_t pairs = 0x00ff00ff;
    const std::uint32_t even = ((pixel & pairs) * part >> 8U) & pairs;
    const std::uint32_t odd = ((pixel >> 8U) & pairs) * part & ~pairs;
    return even | odd;
}

void lay(QRgb& below, const Light& light) {
    const QRgb pixel = pixelOf(light);
    below = pixel + scaled(below, static_cast<std::uint32_t>(256 - qAlpha(pixel)));
}

/// How much of a pixel a line covers.
double covered(double distance, double width) {
    return std::clamp(width / 2 + 0.5 - distance, 0.0, 1.0);
}

/// How much of the disk's light there is at a radius.
double strengthAt(double radius) {
    const double inside = (radius - OrbitMotion::inner) / fadeIn + 0.4;
    const double outside = (OrbitMotion::outer - radius) / fadeOut + 0.4;
    return std::clamp(std::min(inside, outside), 0.0, 1.0);
}

}  // namespace

ChartMotion::ChartMotion(int side, double scale) : side_(side), scale_(scale) {
    const double unit = side / 2.0;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            note(static_cast<std::uint32_t>(y * side + x), (x + 0.5) / unit - 1, (y + 0.5) / unit - 1);
    }
    for (Line& line : streaks_) {
        std::sort(line.begin(), line.end(),
                  [](const LinePixel& a, const LinePixel& b) { return a.turn < b.turn; });
    }
}

/// Remembers what a pixel at that point, in units from the middle, may show.
void ChartMotion::note(std::uint32_t index, double x, double y) {
    const double unit = side_ / 2.0;
    const OrbitPoint point = {x, y};
    const double radius = point.radius();
    if (radius > 1 || radius < OrbitMotion::horizon - horizonRoom * scale_ / unit) return;
    const double turn = point.turn();
    const auto strength = static_cast<std::uint16_t>(std::lround(strengthAt(radius) * 256));
    if (strength > 0) disk_.push_back({index, static_cast<std::uint16_t>(stepAt(turn)), strength});
    const auto noteLine = [&](Line& line, double middle, double room) {
        const double distance = std::abs(radius - middle) * unit;
        if (distance <= room * scale_ + 0.5)
            line.push_back({index, static_cast<float>(turn), static_cast<float>(distance)});
    };
    noteLine(horizon_, OrbitMotion::horizon, horizonRoom);
    const auto all = OrbitMotion::streaks();
    for (std::size_t i = 0; i < all.size(); ++i)
        noteLine(streaks_.at(i), all[i].drawnRadius(), streakWidth / 2);
}

QImage ChartMotion::at(double time) const {
    QImage image = Painting::blank(side_);
    auto* pixels = reinterpret_cast<QRgb*>(image.bits());  // rows of 32-bit pixels follow without padding
    drawDisk(pixels, time);
    const auto streaks = OrbitMotion::streaks();
    for (std::size_t i = 0; i < streaks.size(); ++i) drawStreak(pixels, streaks[i], streaks_.at(i), time);
    drawHorizon(pixels, time);
    return image;
}

void ChartMotion::drawDisk(QRgb* pixels, double time) const {
    static const Circle sheen = around(sheenStops);
    std::array<QRgb, steps> light;
    const QRgb haze = pixelOf(faded(ember, OrbitMotion::hazeOpacity(time)));
    for (std::size_t i = 0; i < steps; ++i) {
        light.at(i) = haze;
        lay(light.at(i), faded(sheen.at(i), OrbitMotion::sheenOpacity));
    }
    const auto turned = static_cast<std::uint32_t>(stepAt(OrbitMotion::sheenTurn(time) / 360));
    for (const DiskPixel& pixel : disk_) {
        const std::uint32_t step = (pixel.angle + steps - turned) % steps;
        pixels[pixel.index] = scaled(light[step], pixel.strength);
    }
}

void ChartMotion::drawStreak(QRgb* pixels, const OrbitMotion::Streak& streak, const Line& line,
                             double time) const {
    constexpr double brightest = 0.75;  // of the way to the head
    const double tail = streak.turn(time);
    const double around = 2 * std::numbers::pi * streak.drawnRadius() * side_ / 2;  // pixels
    const double width = streakWidth * scale_;
    auto pixel = std::lower_bound(line.begin(), line.end(), tail,
                                  [](const LinePixel& each, double turn) { return each.turn < turn; });
    for (std::size_t seen = 0; seen < line.size(); ++seen, ++pixel) {
        if (pixel == line.end()) pixel = line.begin();
        const double ahead = pixel->turn - tail;
        const double behindHead = streak.length - (ahead < 0 ? ahead + 1 : ahead);
        if (behindHead < 0) break;
        const double part = 1 - behindHead / streak.length;
        const double strength = std::min(part / brightest, 1.0) * std::min(behindHead * around, 1.0);
        const Light light = mixed(peach, white, std::max(0.0, part - brightest) / (1 - brightest));
        lay(pixels[pixel->index], faded(light, streak.alpha * strength * covered(pixel->distance, width)));
    }
}

void ChartMotion::drawHorizon(QRgb* pixels, double time) const {
    static const Circle rim = around(rimStops);
    const auto strokes = OrbitMotion::horizonStrokes(OrbitMotion::swell(time));
    const double turned = OrbitMotion::rimTurn(time) / 360;
    const double rimOpacity = OrbitMotion::rimOpacity(time);
    for (const LinePixel& pixel : horizon_) {
        QRgb& below = pixels[pixel.index];
        for (const auto& stroke : strokes)
            lay(below, faded(peach, stroke.opacity * covered(pixel.distance, stroke.width * scale_)));
        const double thin = rimOpacity * covered(pixel.distance, OrbitMotion::rimWidth * scale_);
        if (thin > 0) lay(below, faded(rim.at(stepAt(pixel.turn - turned)), thin));
    }
}

}  // namespace tavrel
