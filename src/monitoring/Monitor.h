#pragma once

#include "monitoring/MachineSampler.h"

#include <QObject>
#include <QThreadPool>

namespace tavrel {

class Clock;

/// What a monitor is made over; everything outlives it.
struct MonitorServices {
    Clock& clock;
    MachineSampler::Sources sources;
    ProcessSource& processes;
};

/// The one object that every live figure comes from: samples the machine every two seconds as long as it
/// lives, thoroughly while somebody watches and sparingly while nobody does. Lives as long as the process.
class Monitor final : public QObject {
    Q_OBJECT
    Q_PROPERTY(
        int processWatchers READ processWatchers WRITE setProcessWatchers NOTIFY processWatchersChanged)
    Q_PROPERTY(int healthScore READ healthScore NOTIFY sampled)

  public:
    explicit Monitor(const MonitorServices& services, QObject* parent = nullptr);
    /// Waits for the reads that go on.
    ~Monitor() override;

    [[nodiscard]] const MachineFigures& figures() const { return sampler_.figures(); }
    /// How many views want full sampling. The first to come gets fresh figures at once.
    [[nodiscard]] int processWatchers() const { return sampler_.watchers(); }
    void setProcessWatchers(int count);
    /// What the status item shows, and is sampled for it even when nobody watches.
    void setMenuBarMetrics(const std::vector<MenuBarMetric>& metrics);
    [[nodiscard]] int healthScore() const;

  Q_SIGNALS:
    void processWatchersChanged();
    /// Some figure may have changed, processes apart.
    void sampled();
    void processesChanged();

  private:
    void tick();
    void sample();

    MonitorServices services_;
    MachineSampler sampler_;
    QThreadPool reads_;
};

}  // namespace tavrel
