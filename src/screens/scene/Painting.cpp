#include "screens/scene/Painting.h"

#include <QPainter>
#include <QRadialGradient>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace tavrel::Painting {

namespace {

/// A row or column of an image.
struct Line {
    QRgb* first;
    qsizetype stride;  // pixels
    int length;
};

/// Every pixel the mean of those within `radius` of it; beyond the ends there is nothing.
void average(const Line& line, int radius, std::vector<QRgb>& copy) {
    copy.resize(static_cast<std::size_t>(line.length));
    for (int i = 0; i < line.length; ++i) copy[static_cast<std::size_t>(i)] = line.first[i * line.stride];
    std::array<int, 4> sums = {};
    const auto count = [&](int index, int times) {
        if (index < 0 || index >= line.length) return;
        const QRgb pixel = copy[static_cast<std::size_t>(index)];
        sums[0] += times * qRed(pixel);
        sums[1] += times * qGreen(pixel);
        sums[2] += times * qBlue(pixel);
        sums[3] += times * qAlpha(pixel);
    };
    const int width = 2 * radius + 1;
    const auto mean = [width](int sum) { return (sum + width / 2) / width; };
    for (int i = 0; i < radius; ++i) count(i, 1);
    for (int i = 0; i < line.length; ++i) {
        count(i + radius, 1);
        count(i - radius - 1, -1);
        line.first[i * line.stride] = qRgba(mean(sums[0]), mean(sums[1]), mean(sums[2]), mean(sums[3]));
    }
}

}  // namespace

QColor faded(QColor colour, double opacity) {
    colour.setAlphaF(static_cast<float>(opacity));
    return colour;
}

QImage blank(const QSize& pixels) {
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QImage blank(int side) {
    return blank(QSize(side, side));
}

QImage roundLight(int side, const QGradientStops& stops) {
    QImage image = blank(side);
    QPainter painter(&image);
    QRadialGradient light(side / 2.0, side / 2.0, side / 2.0);
    light.setStops(stops);
    painter.fillRect(image.rect(), light);
    return image;
}

QImage blurred(QImage image, double sigma) {
    // Three means in a row come close to a Gaussian; each adds ((2r + 1)^2 - 1) / 12 to its variance.
    constexpr int rounds = 3;
    const int radius = static_cast<int>(std::lround((std::sqrt(sigma * sigma * 12 / rounds + 1) - 1) / 2));
    if (radius < 1) return image;
    auto* pixels = reinterpret_cast<QRgb*>(image.bits());
    const qsizetype stride = image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    std::vector<QRgb> copy;
    for (int round = 0; round < rounds; ++round) {
        for (int y = 0; y < image.height(); ++y)
            average({pixels + y * stride, 1, image.width()}, radius, copy);
        for (int x = 0; x < image.width(); ++x) average({pixels + x, stride, image.height()}, radius, copy);
    }
    return image;
}

}  // namespace tavrel::Painting
