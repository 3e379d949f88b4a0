#pragma once

#include "presentation/OrbitMotion.h"

#include <QImage>
#include <array>
#include <cstdint>
#include <vector>

namespace tavrel {

/// The light that moves behind the rings, as one picture a moment. Where each pixel lies on the disk is
/// reckoned once for a size; a picture then is a few looks into tables, which costs less than turning
/// ready-made ones.
class ChartMotion {
  public:
    /// `side` of the chart in pixels; `scale` pixels for a point.
    ChartMotion(int side, double scale);

    /// `time` in seconds. As large as the chart.
    [[nodiscard]] QImage at(double time) const;

  private:
    struct DiskPixel {
        std::uint32_t index = 0;
        std::uint16_t angle = 0;     // in steps of the tables
        std::uint16_t strength = 0;  // of 256: soft at both edges of the disk
    };
    struct LinePixel {
        std::uint32_t index = 0;
        float turn = 0;      // clockwise from the top
        float distance = 0;  // pixels from the line's middle
    };
    using Line = std::vector<LinePixel>;

    void note(std::uint32_t index, double x, double y);
    void drawDisk(QRgb* pixels, double time) const;
    void drawStreak(QRgb* pixels, const OrbitMotion::Streak& streak, const Line& line, double time) const;
    void drawHorizon(QRgb* pixels, double time) const;

    int side_;
    double scale_;
    std::vector<DiskPixel> disk_;
    std::array<Line, OrbitMotion::streakCount> streaks_;  // each by its turns
    Line horizon_;
};

}  // namespace tavrel
