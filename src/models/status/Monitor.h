#pragma once

#include "models/support/Background.h"
#include "monitoring/MachineSampler.h"

#include <QObject>
#include <memory>
#include <vector>

namespace tavrel {

class Clock;

/// What a monitor is made over. The clock outlives it; a reader may be in use when the monitor has gone.
struct MonitorServices {
    Clock& clock;
    std::shared_ptr<Sensors> sensors;
    std::shared_ptr<TemperatureReader> temperatures;
    std::shared_ptr<FanReader> fans;
    std::shared_ptr<ProcessSource> processes;
};

/// The one object that every live figure comes from: samples the machine every two seconds as long as it
/// lives, thoroughly while somebody watches and sparingly while nobody does. Lives as long as the process.
class Monitor final : public QObject {
    Q_OBJECT
    Q_PROPERTY(
        int processWatchers READ processWatchers WRITE setProcessWatchers NOTIFY processWatchersChanged)
    Q_PROPERTY(int healthScore READ healthScore NOTIFY sampled)
    Q_PROPERTY(bool hasSeenProcesses READ hasSeenProcesses NOTIFY processesChanged)

  public:
    explicit Monitor(MonitorServices services, QObject* parent = nullptr);

    [[nodiscard]] const MachineFigures& figures() const { return sampler_.figures(); }
    /// How many views want full sampling. The first to come gets fresh figures at once.
    [[nodiscard]] int processWatchers() const { return sampler_.watchers(); }
    void setProcessWatchers(int count);
    /// What the status item shows, and is sampled for it even when nobody watches.
    void setMenuBarMetrics(const std::vector<MenuBarMetric>& metrics);
    [[nodiscard]] int healthScore() const;
    /// Whether a look at the processes has ended; it may have found none.
    [[nodiscard]] bool hasSeenProcesses() const { return hasSeenProcesses_; }

  Q_SIGNALS:
    void processWatchersChanged();
    /// Some figure may have changed, processes apart.
    void sampled();
    void processesChanged();

  private:
    using Batteries = std::vector<Sensors::Accessory>;

    void tick();
    void sample();
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
