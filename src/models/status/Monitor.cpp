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
      sampler_({*services_.sensors, *services_.temperatures, *services_.fans}, services_.clock.uptime()) {
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

/// Nothing happens while the last such read goes on: it may hang.
template <typename Read, typename Done>
void Monitor::start(bool& isReading, Read read, Done done) {
    if (std::exchange(isReading, true)) return;
    reads_.run(std::move(read), [&isReading, done = std::move(done)](const auto& result) {
        isReading = false;
        done(result);
    });
}

void Monitor::sample() {
    const MachineSampler::Due due = sampler_.sample(services_.clock.uptime());
    const auto sensors = services_.sensors;
    if (due.diskSpace)
        start(
            isReading_.diskSpace, [sensors] { return sensors->diskSpace(); },
            [this](const Sensors::DiskSpace& space) {
                sampler_.setDiskSpace(space);
                Q_EMIT sampled();
            });
    if (due.accessories)
        start(
            isReading_.accessories, [sensors] { return sensors->accessories(); },
            [this](const Batteries& batteries) {
                sampler_.setAccessories(batteries);
                Q_EMIT sampled();
            });
    if (due.bluetooth)
        start(
            isReading_.bluetooth, [sensors] { return sensors->bluetoothBatteries(); },
            [this](const Batteries& batteries) { sampler_.setBluetooth(batteries); });
    if (due.processes)
        start(
            isReading_.processes, [source = services_.processes] { return source->snapshot(); },
            [this](const std::vector<ProcessInfo>& processes) {
                sampler_.setProcesses(processes);
                hasSeenProcesses_ = true;
                Q_EMIT processesChanged();
            });
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
