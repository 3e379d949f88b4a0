#pragma once

#include <QColor>
#include <QGradient>
#include <QImage>

/// What pictures of light are painted with.
namespace tavrel::Painting {

/// The warm white of the disk.
inline const QColor peach = QColor::fromRgbF(1.0F, 0.78F, 0.62F);

[[nodiscard]] QColor faded(QColor colour, double opacity);
/// A picture with nothing on it.
[[nodiscard]] QImage blank(const QSize& pixels);
[[nodiscard]] QImage blank(int side);
/// A round light that fades from the middle to the edge by the stops given.
[[nodiscard]] QImage roundLight(int side, const QGradientStops& stops);
/// `image`, premultiplied, softened as light scatters: by a Gaussian of `sigma` pixels, nearly.
[[nodiscard]] QImage blurred(QImage image, double sigma);

}  // namespace tavrel::Painting
