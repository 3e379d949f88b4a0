#pragma once

#include "core/Instant.h"
#include "core/PreferenceValues.h"
#include "monitoring/MachineFigures.h"
#include "platform/TemperatureReader.h"

#include <set>

namespace tavrel {

/// Computes figures, rates and histories from readings, and decides which readings are due: few without a
/// watcher, since that is how it runs all day. Makes no blocking read; those it asks of its caller. Not
/// thread-safe.
class MachineSampler {
  public:
    /// Must outlive the sampler.
    struct Sources {
        Sensors& sensors;
        TemperatureReader& temperatures;
        FanReader& fans;
    };

    /// Blocking reads that are due. The caller makes each, on any thread, and passes the result to its setter
    /// below; until then the read is not due again.
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

    /// Sets the number of views that need full sampling. Returns true on the change from 0: call sample() at
    /// once.
    [[nodiscard]] bool setWatchers(int count);
    /// Sets the figures that are read even without a watcher.
    void setMetrics(std::set<MenuBarMetric> metrics) { metrics_ = std::move(metrics); }

    /// Takes one sample and returns the reads that are due. `now` is the time of a monotonic clock; rates are
    /// computed over at least half a second.
    [[nodiscard]] Due sample(Instant now);

    void setDiskSpace(Sensors::DiskSpace space);
    void setAccessories(std::vector<Sensors::Accessory> accessories);
    /// Sets the devices that the next setAccessories() appends, except those of a name that it has itself.
    void setBluetooth(std::vector<Sensors::Accessory> bluetooth);
    void setProcesses(std::vector<ProcessInfo> processes);

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
    /// Marks `read` in `due` if `pace` has passed since `last` and no earlier one is under way.
    void ask(bool Due::*read, std::optional<Instant>& last, std::chrono::milliseconds pace, Due& due);

    /// Times of the last readings that have an interval of their own.
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
