#include "Disc.h"
#include "Tracer.h"

#include <QColor>
#include <QImage>
#include <QString>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iostream>
#include <limits>
#include <thread>
#include <vector>

// Draws the pictures of the program from the physics of light around a black hole: BlackHoleArt.png, the hole
// with its disc, and BlackHoleGlow.png, the light that spreads from it; icon.png and glyph.png beside them.

namespace {

using namespace blackhole;

constexpr int side = 760;         // pixels of the art
constexpr double halfView = 8.1;  // Schwarzschild radii from the middle to the edge
constexpr double distance = 60;
constexpr double elevation = 0.30;  // radians above the disc's plane

/// Linear light that has been summed up in front of black or of nothing.
struct Sum {
    double red = 0;
    double green = 0;
    double blue = 0;
    double cover = 0;

    void add(const Light& light) {
        const double left = 1 - cover;
        red += light.red * left;
        green += light.green * left;
        blue += light.blue * left;
        cover += light.cover * left;
    }
};

/// What the eye sees at a place of the picture, in Schwarzschild radii from its middle. Rays are parallel, as
/// from far away.
Sum look(double right, double up) {
    const double sine = std::sin(elevation);
    const double cosine = std::cos(elevation);
    const Vector from = {right, distance * sine + up * cosine, distance * cosine - up * sine};
    const Vector forward = {0, -sine, -cosine};
    Sum sum;
    const Path path = trace(from, forward, [&sum](const Crossing& crossing) {
        sum.add(Disc::light(crossing));
        return sum.cover < 0.995;
    });
    // The shadow hides what lies behind; around it, where light is bent most, the sky is thinned out.
    constexpr double dimmed = 3.6;
    const double near = std::clamp((dimmed - path.closest) / 1.6, 0.0, 1.0);
    sum.cover = std::max(sum.cover, path.end == End::captured ? 1.0 : 0.8 * near);
    return sum;
}

using Picture = std::vector<Sum>;

std::size_t indexOf(int row, int column, int width) {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(width) + static_cast<std::size_t>(column);
}

/// The mean of `samples` by `samples` rays through a pixel, and how much the brightest is above the darkest.
struct Pixel {
    Sum mean;
    double contrast = 0;
};

Pixel lookThrough(int column, int row, int samples) {
    constexpr double pixel = 2 * halfView / side;
    const double share = 1.0 / (samples * samples);
    Sum mean;
    double darkest = std::numeric_limits<double>::infinity();
    double brightest = 0;
    for (int i = 0; i < samples * samples; ++i) {
        const int down = i / samples;
        const double x = column + (static_cast<double>(i % samples) + 0.5) / samples;
        const double y = row + (static_cast<double>(down) + 0.5) / samples;
        const Sum seen = look(x * pixel - halfView, halfView - y * pixel);
        darkest = std::min(darkest, seen.red);
        brightest = std::max(brightest, seen.red);
        mean.red += seen.red * share;
        mean.green += seen.green * share;
        mean.blue += seen.blue * share;
        mean.cover += seen.cover * share;
    }
    return {mean, brightest - darkest};
}

/// Where light changes within a pixel, as at the thin ring of light that went round the hole, many rays are
/// needed for a smooth edge.
void drawRows(Picture& picture, int first, int step) {
    constexpr double smooth = 0.1;
    for (int row = first; row < side; row += step) {
        for (int column = 0; column < side; ++column) {
            const Pixel coarse = lookThrough(column, row, 2);
            picture[indexOf(row, column, side)] =
                coarse.contrast < smooth ? coarse.mean : lookThrough(column, row, 6).mean;
        }
    }
}

Picture drawAll() {
    Picture picture(static_cast<std::size_t>(side) * side);
    const int team = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    std::vector<std::jthread> threads;
    threads.reserve(static_cast<std::size_t>(team));
    for (int i = 0; i < team; ++i) threads.emplace_back([&picture, i, team] { drawRows(picture, i, team); });
    threads.clear();
    return picture;
}

/// Linear light as a screen shows it: bright values saturate softly; then the curve of sRGB.
double shown(double linear) {
    const double soft = 1 - std::exp(-1.35 * linear);
    return soft <= 0.0031308 ? 12.92 * soft : 1.055 * std::pow(soft, 1 / 2.4) - 0.055;
}

int byte(double value) {
    return static_cast<int>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
}

/// A pixel is never brighter than what it covers, as premultiplied pictures have it.
QImage imageOf(const Picture& picture, int width) {
    QImage image(width, width, QImage::Format_ARGB32_Premultiplied);
    for (int row = 0; row < width; ++row) {
        for (int column = 0; column < width; ++column) {
            const Sum& at = picture[indexOf(row, column, width)];
            const double red = shown(at.red);
            const double green = shown(at.green);
            const double blue = shown(at.blue);
            const double cover = std::clamp(std::max({at.cover, red, green, blue}), 0.0, 1.0);
            image.setPixel(column, row, qRgba(byte(red), byte(green), byte(blue), byte(cover)));
        }
    }
    return image;
}

/// A running mean along rows, then along columns: three of them make nearly a Gauss blur.
Picture blurred(Picture picture, int width, int radius) {
    enum class Along { rows, columns };
    const auto pass = [&](Along along) {
        const auto placeOf = [&](int line, int point) {
            return along == Along::rows ? indexOf(line, point, width) : indexOf(point, line, width);
        };
        Picture out(picture.size());
        for (int line = 0; line < width; ++line) {
            Sum sum;
            const auto at = [&](int point) -> const Sum& {
                return picture[placeOf(line, std::clamp(point, 0, width - 1))];
            };
            const auto change = [&](const Sum& by, double sign) {
                sum.red += sign * by.red;
                sum.green += sign * by.green;
                sum.blue += sign * by.blue;
            };
            for (int point = -radius; point <= radius; ++point) change(at(point), 1);
            for (int point = 0; point < width; ++point) {
                const double share = 1.0 / (2 * radius + 1);
                out[placeOf(line, point)] = {sum.red * share, sum.green * share, sum.blue * share, 0};
                change(at(point + radius + 1), 1);
                change(at(point - radius), -1);
            }
        }
        picture = std::move(out);
    };
    for (int i = 0; i < 3; ++i) {
        pass(Along::rows);
        pass(Along::columns);
    }
    return picture;
}

/// Half the size in each direction, as often as asked.
Picture halved(const Picture& picture, int width) {
    const int half = width / 2;
    Picture out(static_cast<std::size_t>(half) * static_cast<std::size_t>(half));
    for (int row = 0; row < half; ++row) {
        for (int column = 0; column < half; ++column) {
            Sum& sum = out[indexOf(row, column, half)];
            for (int i = 0; i < 4; ++i) {
                const Sum& at = picture[indexOf(2 * row + i / 2, 2 * column + i % 2, width)];
                sum.red += at.red / 4;
                sum.green += at.green / 4;
                sum.blue += at.blue / 4;
                sum.cover += at.cover / 4;
            }
        }
    }
    return out;
}

/// The light that the disc throws around it, wide and narrow together.
Picture glowOf(const Picture& picture) {
    Picture light = halved(picture, side);
    for (Sum& at : light) at.cover = 0;
    constexpr int width = side / 2;
    const Picture narrow = blurred(light, width, 5);
    const Picture wide = blurred(light, width, 26);
    for (std::size_t i = 0; i < light.size(); ++i) {
        const std::size_t line = i / width;
        const double row = static_cast<double>(line) / width - 0.5;
        const double column = static_cast<double>(i % width) / width - 0.5;
        const double edge = std::clamp((0.5 - std::hypot(row, column)) / 0.12, 0.0, 1.0);
        light[i] = {edge * (0.5 * narrow[i].red + 0.9 * wide[i].red),
                    edge * (0.5 * narrow[i].green + 0.9 * wide[i].green),
                    edge * (0.5 * narrow[i].blue + 0.9 * wide[i].blue), 0};
    }
    return light;
}

/// The shape alone in white, for a bar that colours its glyphs itself.
QImage glyphOf(const QImage& art) {
    constexpr int small = 64;
    QImage glyph = art.scaled(small, small, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                       .convertToFormat(QImage::Format_ARGB32);
    for (int row = 0; row < small; ++row) {
        for (int column = 0; column < small; ++column) {
            const QColor colour = glyph.pixelColor(column, row);
            const int light = std::max({colour.red(), colour.green(), colour.blue()}) * colour.alpha() / 255;
            glyph.setPixelColor(column, row, QColor(255, 255, 255, std::min(255, light * 3 / 2)));
        }
    }
    return glyph;
}

bool save(const QImage& image, const QString& folder, const char* name) {
    if (image.save(folder + QLatin1Char('/') + QLatin1String(name))) return true;
    std::cerr << "blackhole: cannot write " << name << '\n';
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: blackhole FOLDER\n";
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const Picture picture = drawAll();
    const QImage art = imageOf(picture, side);
    constexpr int iconSide = 256;
    const bool saved = save(art, folder, "BlackHoleArt.png") &&
                       save(imageOf(glowOf(picture), side / 2), folder, "BlackHoleGlow.png") &&
                       save(art.scaled(iconSide, iconSide, Qt::KeepAspectRatio, Qt::SmoothTransformation),
                            folder, "icon.png") &&
                       save(glyphOf(art), folder, "glyph.png");
    return saved ? 0 : 1;
}
