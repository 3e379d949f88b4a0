#pragma once

#include <QColor>
#include <QImage>
#include <QString>
#include <array>
#include <map>

namespace tavrel {

/// The pictures that the scene is put together from, painted once for a size.
class ScenePictures {
  public:
    /// `pixels` is the side of the scene; `tint` its accent.
    ScenePictures(int pixels, const QColor& tint);

    QImage art;       // the hole and its disc
    QImage glow;      // the light around it
    QImage backdrop;  // a wide light in the tint
    QImage spark;     // a soft dot of peach
    QImage sheen;     // light and shade that goes round on the disc
    QImage probe;     // the body on its orbit

    /// A ring as large as its picture whose line has that part of its radius, the nearest that there is.
    [[nodiscard]] const QImage& ring(double lineOfRadius) const;
    /// A symbol in white.
    [[nodiscard]] const QImage& symbol(std::string_view name);

  private:
    std::array<QImage, 6> rings_;
    std::map<std::string, QImage, std::less<>> symbols_;
};

}  // namespace tavrel
