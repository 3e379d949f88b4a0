#pragma once

#include <array>
#include <cstddef>
#include <string_view>

/// Small things that spiral into the hole while it works.
namespace tavrel::DustFall {

inline constexpr std::size_t count = 26;

/// Names of the pictures that fall.
inline constexpr std::array<std::string_view, 9> symbols = {
    "doc.fill",   "folder.fill",     "photo.fill",        "doc.zipper",       "film.fill",
    "music.note", "archivebox.fill", "doc.richtext.fill", "puzzlepiece.fill",
};

struct Particle {
    double angle = 0;   // radians
    double radius = 0;  // of the view, where the fall begins
    double speed = 0;   // falls a second
    double phase = 0;
    double scale = 1;
    std::size_t symbol = 0;  // which of `symbols`
};

/// Always the same ones.
[[nodiscard]] const std::array<Particle, count>& particles();

/// One particle at a moment, in points from the middle, y downwards.
struct Drawn {
    double x = 0;
    double y = 0;
    double opacity = 0;
    double widthFactor = 1;  // it stretches as it falls
    double heightFactor = 1;
    double rotation = 0;  // radians; the more it has fallen, the more its width points to the middle
};

[[nodiscard]] Drawn drawn(const Particle& particle, double time, double size);

}  // namespace tavrel::DustFall
