#pragma once

#include "models/support/Background.h"
#include "monitoring/MachineSampler.h"
#include "monitoring/PlatformTexts.h"

#include <QObject>
#include <memory>
#include <vector>

namespace tavrel {

class Clock;

/// What a monitor is constructed from. The clock outlives the monitor; a background thread may use a reader
/// after the monitor's destruction.
struct MonitorServices {
    Clock& clock;
    std::shared_ptr<Sensors> sensors;
    std::shared_ptr<TemperatureReader> temperatures;
    std::shared_ptr<FanReader> fans;
    std::shared_ptr<ProcessSource> processes;
    PlatformTexts texts = {};
};

/// Samples the machine every two seconds from its construction to its destruction: all figures while a
/// MonitorWatcher is active, few otherwise. One for each process, for the main thread only.
class Monitor final : public QObject {
    Q_OBJECT
    Q_PROPERTY(int healthScore READ healthScore NOTIFY sampled)
    Q_PROPERTY(bool hasSeenProcesses READ hasSeenProcesses NOTIFY processesChanged)

  public:
    explicit Monitor(MonitorServices services, QObject* parent = nullptr);

    [[nodiscard]] const MachineFigures& figures() const { return sampler_.figures(); }
    /// The texts of the system that the figures are read on.
    [[nodiscard]] const PlatformTexts& texts() const { return services_.texts; }
    /// The number of active watchers.
    [[nodiscard]] int processWatchers() const { return sampler_.watchers(); }
    /// Sets the figures that are sampled even without a watcher, for the status item.
    void setMenuBarMetrics(const std::vector<MenuBarMetric>& metrics);
    [[nodiscard]] int healthScore() const;
    /// Returns true once the processes have been read, even if there were none.
    [[nodiscard]] bool hasSeenProcesses() const { return hasSeenProcesses_; }

  Q_SIGNALS:
    /// Any figure but the processes may have changed.
    void sampled();
    void processesChanged();

  private:
    friend class MonitorWatcher;
    using Batteries = std::vector<Sensors::Accessory>;

    void tick();
    void sample();
    /// The change from 0 to 1 samples everything at once.
    void addWatchers(int change);
    template <typename Read, typename Done>
    void start(bool& isReading, Read read, Done done);

    MonitorServices services_;
    MachineSampler sampler_;
    bool hasSeenProcesses_ = false;
    struct {
        bool diskSpace = false;
        bool accessories = false;
        bool bluetooth = false;
        bool processes = false;
    } isReading_;
    Background reads_{Background::Kind::mayBeAbandoned, Background::noLimit};
};

}  // namespace tavrel
