#pragma once

#include "core/Instant.h"
#include "core/PreferenceValues.h"
#include "monitoring/MachineFigures.h"
#include "platform/TemperatureReader.h"

#include <set>

namespace tavrel {

/// Turns readings into figures, rates and histories, and decides what is read when: all day long nobody
/// looks, and a sample must then cost almost nothing. Reads that block are left to the caller.
class MachineSampler {
  public:
    /// They outlive the sampler.
    struct Sources {
        Sensors& sensors;
        TemperatureReader& temperatures;
        FanReader& fans;
    };

    /// Blocking reads that the caller is to make now, and to hand back with `took`.
    struct Due {
        bool diskSpace = false;
        bool accessories = false;
        bool bluetooth = false;
        bool processes = false;
    };

    static constexpr std::size_t historyLength = 40;

    MachineSampler(Sources sources, Instant now);

    [[nodiscard]] const MachineFigures& figures() const { return figures_; }
    [[nodiscard]] int watchers() const { return watchers_; }

    /// How many views want everything. True when the first of them has come: it is owed a sample at once.
    [[nodiscard]] bool setWatchers(int count);
    /// What is read even when nobody watches.
    void setMetrics(std::set<MenuBarMetric> metrics) { metrics_ = std::move(metrics); }

    /// One sample. `now` is of a clock that only goes forward.
    [[nodiscard]] Due sample(Instant now);

    void took(Sensors::DiskSpace space);
    void tookAccessories(std::vector<Sensors::Accessory> accessories);
    /// They join the accessories when those are next taken.
    void tookBluetooth(std::vector<Sensors::Accessory> bluetooth);
    void took(std::vector<ProcessInfo> processes);

  private:
    [[nodiscard]] bool wants(MenuBarMetric metric) const { return isWatched() || metrics_.contains(metric); }
    [[nodiscard]] bool isWatched() const { return watchers_ >= 1; }
    void readCpu();
    void readMemory();
    void readGpu();
    void readDiskIO(double elapsed);
    void readNetwork(double elapsed);
    void readHeat();
    void readSlowOnes();
    /// At its pace; a read that has not come back yet is not made a second time.
    void ask(bool Due::*read, std::optional<Instant>& last, std::chrono::milliseconds pace, Due& due);

    /// When what is read at a pace of its own was last read.
    struct Last {
        std::optional<Instant> slow;
        std::optional<Instant> diskSpace;
        std::optional<Instant> accessories;
        std::optional<Instant> bluetooth;
    };

    Sources sources_;
    MachineFigures figures_;
    int watchers_ = 0;
    std::set<MenuBarMetric> metrics_ = {MenuBarMetric::cpu, MenuBarMetric::memory};

    std::vector<Sensors::CPUTicks> lastTicks_;
    std::optional<Sensors::DiskIO> lastIO_;
    std::optional<Sensors::NetworkBytes> lastNet_;
    Instant lastSample_;
    Last last_;
    std::optional<Instant> lastProcesses_;
    Due underWay_;
    std::vector<Sensors::Accessory> bluetooth_;
};

}  // namespace tavrel
