#include "monitoring/Monitor.h"

#include "core/Clock.h"
#include "monitoring/HealthScore.h"

#include <QPointer>
#include <QtConcurrentRun>
#include <utility>

namespace tavrel {

namespace {

constexpr std::chrono::seconds interval{2};

Sensors::DiskSpace diskSpace(const Sensors* sensors) {
    return sensors->diskSpace();
}

std::vector<Sensors::Accessory> bluetoothBatteries(const Sensors* sensors) {
    return sensors->bluetoothBatteries();
}

std::vector<ProcessInfo> snapshot(ProcessSource* processes) {
    return processes->snapshot();
}

}  // namespace

Monitor::Monitor(const MonitorServices& services, QObject* parent)
    : QObject(parent), services_(services), sampler_(services_.sources, services_.clock.uptime()) {
    sample();
    tick();
}

Monitor::~Monitor() {
    reads_.waitForDone();
}

/// Samples again and again; the clock may outlive the monitor.
void Monitor::tick() {
    services_.clock.after(interval, [self = QPointer(this)] {
        if (!self) return;
        self->sample();
        self->tick();
    });
}

void Monitor::sample() {
    const MachineSampler::Due due = sampler_.sample(services_.clock.uptime());
    const Sensors* sensors = &services_.sources.sensors;
    if (due.diskSpace) {
        QtConcurrent::run(&reads_, diskSpace, sensors).then(this, [this](const Sensors::DiskSpace& space) {
            sampler_.took(space);
            Q_EMIT sampled();
        });
    }
    if (due.bluetooth) {
        QtConcurrent::run(&reads_, bluetoothBatteries, sensors)
            .then(this,
                  [this](const std::vector<Sensors::Accessory>& batteries) { sampler_.took(batteries); });
    }
    if (due.processes) {
        QtConcurrent::run(&reads_, snapshot, &services_.processes)
            .then(this, [this](const std::vector<ProcessInfo>& processes) {
                sampler_.took(processes);
                Q_EMIT processesChanged();
            });
    }
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
