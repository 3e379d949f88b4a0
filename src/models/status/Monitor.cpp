#include "models/status/Monitor.h"

#include "models/support/Clock.h"
#include "monitoring/HealthScore.h"

#include <QPointer>
#include <utility>

namespace tavrel {

namespace {

constexpr std::chrono::seconds interval{2};

}  // namespace

Monitor::Monitor(MonitorServices services, QObject* parent)
    : QObject(parent),
      services_(std::move(services)),
      sampler_({*services_.sensors, *services_.temperatures, *services_.fans}, services_.clock.uptime()),
      diskSpace_([this](const Sensors::DiskSpace& space) {
          sampler_.took(space);
          Q_EMIT sampled();
      }),
      accessories_([this](const Batteries& batteries) {
          sampler_.tookAccessories(batteries);
          Q_EMIT sampled();
      }),
      bluetooth_([this](const Batteries& batteries) { sampler_.tookBluetooth(batteries); }),
      processes_([this](const std::vector<ProcessInfo>& processes) {
          sampler_.took(processes);
          hasSeenProcesses_ = true;
          Q_EMIT processesChanged();
      }) {
    sample();
    tick();
}

/// Samples again and again; the clock may outlive the monitor.
void Monitor::tick() {
    services_.clock.afterAbout(interval, [self = QPointer(this)] {
        if (!self) return;
        self->sample();
        self->tick();
    });
}

void Monitor::sample() {
    const MachineSampler::Due due = sampler_.sample(services_.clock.uptime());
    if (due.diskSpace) diskSpace_.start([sensors = services_.sensors] { return sensors->diskSpace(); });
    if (due.accessories) accessories_.start([sensors = services_.sensors] { return sensors->accessories(); });
    if (due.bluetooth)
        bluetooth_.start([sensors = services_.sensors] { return sensors->bluetoothBatteries(); });
    if (due.processes) processes_.start([source = services_.processes] { return source->snapshot(); });
    Q_EMIT sampled();
}

void Monitor::setProcessWatchers(int count) {
    if (count == processWatchers() || count < 0) return;
    const bool first = sampler_.setWatchers(count);
    Q_EMIT processWatchersChanged();
    if (first) sample();
}

void Monitor::setMenuBarMetrics(const std::vector<MenuBarMetric>& metrics) {
    sampler_.setMetrics({metrics.begin(), metrics.end()});
}

int Monitor::healthScore() const {
    return tavrel::healthScore(figures());
}

}  // namespace tavrel
