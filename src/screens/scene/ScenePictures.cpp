#include "screens/scene/ScenePictures.h"

#include "presentation/DustFall.h"
#include "screens/controls/Symbols.h"
#include "screens/scene/Painting.h"

#include <QConicalGradient>
#include <QFont>
#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>

namespace tavrel {

namespace {

using namespace Painting;

constexpr int sparkSide = 64;
constexpr int ringSide = 512;
constexpr int backdropSide = 512;
constexpr int symbolSide = 48;
constexpr double ringStep = 1.1;  // from the line of a ring to that of the next
constexpr double thinnest = 0.008;
constexpr double thickest = 0.5;  // of the radius

QImage fromResource(const char* name, int side) {
    const QImage image(QLatin1String(":/art/") + QLatin1String(name));
    return image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage paintedRing(double lineOfRadius) {
    QImage image = blank(ringSide);
    const double outer = ringSide / 2.0;
    QPainter painter(&image);
    QRadialGradient light(outer, outer, outer);
    const double line = lineOfRadius / (1 + lineOfRadius / 2);
    light.setColorAt(1 - line, faded(peach, 0));
    light.setColorAt(1 - line * 0.6, Qt::white);
    light.setColorAt(1 - line * 0.4, Qt::white);
    light.setColorAt(1, faded(peach, 0));
    painter.fillRect(image.rect(), light);
    return image;
}

QImage paintedSheen(int side) {
    QImage image = blank(side);
    QPainter painter(&image);
    QConicalGradient sheen(side / 2.0, side / 2.0, 0);
    const QColor clear = faded(Qt::white, 0);
    sheen.setColorAt(0, clear);
    sheen.setColorAt(0.08, faded(peach, 0.35));
    sheen.setColorAt(0.5, clear);
    sheen.setColorAt(0.58, faded(Qt::white, 0.45));
    sheen.setColorAt(0.72, faded(peach, 0.25));
    sheen.setColorAt(0.8, clear);
    sheen.setColorAt(1, clear);
    painter.fillRect(image.rect(), sheen);
    // Only the ring of the disc, soft at both edges.
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    QRadialGradient mask(side / 2.0, side / 2.0, side / 2.0);
    mask.setColorAt(0.42, Qt::transparent);
    mask.setColorAt(0.55, Qt::black);
    mask.setColorAt(0.75, faded(Qt::black, 0.8));
    mask.setColorAt(0.95, Qt::transparent);
    painter.fillRect(image.rect(), mask);
    return image;
}

/// `image` with each pixel as strong as `strength` says of the light of `art` there, 0 to 1.
template <typename Strength>
QImage weighed(QImage image, const QImage& art, const Strength& strength) {
    const QImage light = art.scaled(image.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    for (int y = 0; y < image.height(); ++y) {
        auto* pixel = reinterpret_cast<QRgb*>(image.scanLine(y));
        const auto* lit = reinterpret_cast<const QRgb*>(light.constScanLine(y));
        for (int x = 0; x < image.width(); ++x, ++pixel, ++lit) {
            const int brightest = std::max({qRed(*lit), qGreen(*lit), qBlue(*lit)});
            const double part = std::clamp(strength(brightest / 255.0, qAlpha(*lit) / 255.0), 0.0, 1.0);
            const auto faint = [part](int channel) { return static_cast<int>(channel * part); };
            *pixel = qRgba(faint(qRed(*pixel)), faint(qGreen(*pixel)), faint(qBlue(*pixel)),
                           faint(qAlpha(*pixel)));
        }
    }
    return image;
}

/// The dark of the art alone: it hides what lights drawn over the disc would spill into the shadow.
QImage paintedShadow(const QImage& art) {
    QImage image = blank(art.width());
    image.fill(Qt::black);
    return weighed(image, art, [](double light, double alpha) { return alpha * (1 - 4 * light); });
}

/// A band of light across the disc, further right by `offset` of the picture.
QImage paintedShine(const QImage& art, double offset) {
    QImage image = blank(art.width() / 2);
    QPainter painter(&image);
    const double side = image.width();
    QLinearGradient band(offset * side, 0, side + offset * side, side);
    band.setColorAt(0.25, faded(Qt::white, 0));
    band.setColorAt(0.35, faded(QColor(255, 240, 226), 0.9));
    band.setColorAt(0.45, faded(peach, 0));
    painter.fillRect(image.rect(), band);
    painter.end();
    return weighed(image, art, [](double light, double) { return light; });
}

QImage paintedDust() {
    QImage image(symbolSide * static_cast<int>(DustFall::symbols.size()), symbolSide,
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QFont font(QStringLiteral("Material Design Icons"));
    font.setPixelSize(symbolSide - 4);
    painter.setFont(font);
    painter.setPen(Qt::white);
    QRect place(0, 0, symbolSide, symbolSide);
    for (const std::string_view name : DustFall::symbols) {
        const auto symbol = QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
        painter.drawText(place, Qt::AlignCenter, Symbols::glyph(symbol));
        place.translate(symbolSide, 0);
    }
    return image;
}

}  // namespace

ScenePictures::ScenePictures(int pixels, const QColor& tint)
    : art(fromResource("BlackHoleArt.png", pixels)),
      glow(fromResource("BlackHoleGlow.png", pixels / 2)),
      backdrop(roundLight(backdropSide, {{0, tint},
                                         {0.2, faded(tint, 0.62)},
                                         {0.5, faded(tint, 0.34)},
                                         {0.85, faded(tint, 0.22)},
                                         {1, faded(tint, 0)}})),
      spark(roundLight(sparkSide, {{0, faded(Qt::white, 1)},
                                   {0.2, faded(peach, 0.75)},
                                   {0.5, faded(peach, 0.22)},
                                   {1, faded(peach, 0)}})),
      flash(roundLight(sparkSide, {{0, faded(peach, 0.6)}, {1, faded(peach, 0)}})),
      heat(4, 4, QImage::Format_ARGB32_Premultiplied),
      sheen(paintedSheen(pixels / 2)),
      shines{paintedShine(art, 0.13), paintedShine(art, 0.26)},
      shadow(paintedShadow(art)),
      probe(roundLight(
          sparkSide,
          {{0, Qt::white}, {0.28, QColor(255, 244, 232)}, {0.4, faded(peach, 0.5)}, {1, faded(peach, 0)}})),
      dust(paintedDust()) {
    heat.fill(peach);
}

const QImage& ScenePictures::ring(double lineOfRadius) const {
    const double line = std::clamp(lineOfRadius, thinnest, thickest);
    const int step = static_cast<int>(std::lround(std::log(line) / std::log(ringStep)));
    const auto [at, isNew] = rings_.try_emplace(step);
    if (isNew) at->second = paintedRing(std::pow(ringStep, step));
    return at->second;
}

}  // namespace tavrel
