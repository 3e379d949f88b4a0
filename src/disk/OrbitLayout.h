#pragma once

#include "disk/AnalyzeEntry.h"
#include "disk/RingArc.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tavrel {

/// A colour by its parts, 0 to 1.
struct OrbitColour {
    double red = 0;
    double green = 0;
    double blue = 0;

    bool operator==(const OrbitColour&) const = default;
};

/// One arc of the picture. Its place is in fractions of the circle, clockwise from the top.
struct OrbitSegment {
    std::string id;  // the path, or "other"
    double start = 0;
    double end = 0;
    OrbitColour color;
    AnalyzeFocus focus;
    std::int64_t size = 0;  // bytes

    [[nodiscard]] double share() const { return end - start; }
    bool operator==(const OrbitSegment&) const = default;
};

/// The two rings, as far as all pictures share them; radii are parts of half the picture's side.
struct OrbitRing {
    double inner = 0;
    double outer = 0;
    double focusedOuter = 0;
    double opacity = 1;

    /// The shape of `segment`, while `reveal` (0 to 1) of the whole circle has been swept, and `emphasis`
    /// (0 to 1) of the way to its size in focus has been made.
    [[nodiscard]] RingArc arc(const OrbitSegment& segment, double reveal, double emphasis) const;
};

/// How a folder is drawn: its entries as one ring, their sub-folders as another around it.
struct OrbitLayout {
    std::vector<OrbitSegment> inner;
    std::vector<OrbitSegment> outer;
    std::int64_t total = 0;      // bytes of what is drawn
    std::size_t smallCount = 0;  // entries in the lump

    bool operator==(const OrbitLayout&) const = default;
};

namespace OrbitChart {

/// The colours of the disk, from cool blue over warm peach to violet.
inline constexpr std::array palette = {
    OrbitColour{0.62, 0.76, 1.00}, OrbitColour{1.00, 0.93, 0.82}, OrbitColour{1.00, 0.78, 0.38},
    OrbitColour{1.00, 0.58, 0.26}, OrbitColour{1.00, 0.40, 0.34}, OrbitColour{0.95, 0.38, 0.58},
    OrbitColour{0.80, 0.38, 0.80}, OrbitColour{0.58, 0.44, 0.98},
};
inline constexpr OrbitColour lumpColour = {0.55, 0.55, 0.55};
inline constexpr const char* lumpId = "other";
inline constexpr double leastShare = 0.004;       // of an entry with an arc of its own
inline constexpr double leastSliceShare = 0.002;  // of a sub-folder with an arc

inline constexpr OrbitRing innerRing = {.inner = 0.40, .outer = 0.68, .focusedOuter = 0.71, .opacity = 0.92};
inline constexpr OrbitRing outerRing = {.inner = 0.70, .outer = 0.92, .focusedOuter = 0.95, .opacity = 0.50};

/// Whether a thing of `size` bytes is large enough among `total` for an arc, and a colour, of its own.
[[nodiscard]] bool hasOwnArc(std::int64_t size, std::int64_t total);

/// `entries` largest first. What is not measured or empty is left out; what is too small for an arc of its
/// own goes into one at the end.
[[nodiscard]] OrbitLayout layout(std::span<const AnalyzeEntry> entries, const SubSlices& subSlices);

/// The id of the arc that stands for `focus`.
[[nodiscard]] std::string idOf(const AnalyzeFocus& focus);
/// What the arc called `id` stands for; nothing where there is none.
[[nodiscard]] std::optional<AnalyzeFocus> focusOf(const OrbitLayout& layout, std::string_view id);

}  // namespace OrbitChart
}  // namespace tavrel
