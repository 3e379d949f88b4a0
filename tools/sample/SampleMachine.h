#pragma once

#include "support/FakeMachine.h"

#include <chrono>

namespace tavrel::sample {

/// A laptop at work, with everything that such a machine can tell: its figures rise and fall with the time.
class SampleMachine final : public testing::FakeMachine {
  public:
    SampleMachine();

    std::vector<CPUTicks> cpuTicks() override;
    std::optional<double> gpuUsage() override;
    std::optional<DiskIO> diskIO() override;
    std::optional<NetworkBytes> networkBytes() override;
    std::string chipName() override { return "Apple M2 Pro"; }
    std::vector<ProcessInfo> snapshot() override;

  private:
    using Clock = std::chrono::steady_clock;

    [[nodiscard]] double seconds(Clock::time_point since) const;
    /// Between 0 and 1, twice a minute and somewhat uneven.
    [[nodiscard]] double wave(double phase) const;

    Clock::time_point start_ = Clock::now();
    Clock::time_point counted_ = start_;  // the ticks
    Clock::time_point received_ = start_;
};

}  // namespace tavrel::sample
