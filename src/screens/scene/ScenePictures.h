#pragma once

#include <QColor>
#include <QImage>
#include <array>
#include <map>

namespace tavrel {

/// The pictures that the scene is put together from, painted once for a size.
class ScenePictures {
  public:
    /// `pixels` is the side of the scene; `tint` its accent.
    ScenePictures(int pixels, const QColor& tint);

    QImage art;                    // the hole and its disc
    QImage glow;                   // the light around it
    QImage backdrop;               // a wide light in the tint
    QImage spark;                  // a soft dot of light
    QImage flash;                  // a soft dot of peach
    QImage heat;                   // even peach, for what glows
    QImage sheen;                  // light and shade that goes round on the disc
    std::array<QImage, 2> shines;  // soft bands of light over the disc
    QImage shadow;                 // the dark of the art, without its light
    QImage probe;                  // the body on its orbit
    QImage dust;                   // the symbols that fall, in white, side by side

    /// How far the backdrop reaches from the middle, in sides of the scene.
    static constexpr double backdropReach = 1.7;

    /// A ring as large as its picture whose line has that part of its radius, nearly.
    [[nodiscard]] const QImage& ring(double lineOfRadius) const;

  private:
    mutable std::map<int, QImage> rings_;  // painted when first asked for, by the step of their line
};

}  // namespace tavrel
