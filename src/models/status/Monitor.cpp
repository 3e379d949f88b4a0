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
          sampler_.setDiskSpace(space);
          Q_EMIT sampled();
      }),
      accessories_([this](const Batteries& batteries) {
          sampler_.setAccessories(batteries);
          Q_EMIT sampled();
      }),
      bluetooth_([this](const Batteries& batteries) { sampler_.setBluetooth(batteries); }),
      processes_([this](const std::vector<ProcessInfo>& processes) {
          sampler_.setProcesses(processes);
          hasSeenProcesses_ = true;
          Q_EMIT processesChanged();
      }) {
    sample();
    tick();
}

/// Samples from now on at the interval. The clock may outlive the monitor.
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

void Monitor::addWatchers(int change) {
    if (sampler_.setWatchers(processWatchers() + change)) sample();
}

void Monitor::setMenuBarMetrics(const std::vector<MenuBarMetric>& metrics) {
    sampler_.setMetrics({metrics.begin(), metrics.end()});
}

int Monitor::healthScore() const {
    return tavrel::healthScore(figures());
}

}  // namespace tavrel
