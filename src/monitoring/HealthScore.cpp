#include "monitoring/HealthScore.h"

#include <algorithm>

namespace tavrel {

namespace {

/// 1 up to a share of `free`, and from there, over `span`, down to 0.
double ease(double share, double free, double span) {
    return std::max(0.0, 1 - std::max(share - free, 0.0) / span);
}

double memoryPart(std::int64_t pressure) {
    if (pressure < 2) return 0.25;
    return pressure < 4 ? 0.15 : 0.05;
}

double heatPart(Sensors::ThermalState state) {
    switch (state) {
        case Sensors::ThermalState::nominal:
            return 0.2;
        case Sensors::ThermalState::fair:
            return 0.2 * 0.8;
        case Sensors::ThermalState::serious:
            return 0.2 * 0.4;
        case Sensors::ThermalState::critical:
            break;
    }
    return 0.2 * 0.1;
}

}  // namespace

int healthScore(const MachineFigures& figures) {
    const double disk = ease(usedShare(figures.disk), 0.6, 0.4);
    const double memory = memoryPart(figures.memory.pressure.value_or(0));
    const double cpu = ease(figures.cpu.value_or(0), 0.7, 0.3);
    const double heat = heatPart(figures.thermalState.value_or(Sensors::ThermalState::nominal));
    return static_cast<int>((0.4 * disk + memory + 0.15 * cpu + heat) * 100);
}

HealthGrade healthGrade(int score) {
    if (score >= 85) return HealthGrade::excellent;
    return score >= 65 ? HealthGrade::good : HealthGrade::needsCare;
}

}  // namespace tavrel
