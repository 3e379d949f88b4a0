#include "monitoring/Monitor.h"

#include "core/Clock.h"
#include "monitoring/HealthScore.h"

#include <QPointer>
#include <QtConcurrentRun>
#include <utility>

namespace tavrel {

namespace {

constexpr std::chrono::seconds interval{2};

/// A thread for each kind of read: they wait for others and hardly work, and none shall wait for the next.
constexpr int kindsOfReads = 4;

}  // namespace

Monitor::Monitor(const MonitorServices& services, QObject* parent)
    : QObject(parent), services_(services), sampler_(services_.sources, services_.clock.uptime()) {
    reads_.setMaxThreadCount(kindsOfReads);
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
    using Batteries = std::vector<Sensors::Accessory>;
    if (due.diskSpace) {
        QtConcurrent::run(&reads_, &Sensors::diskSpace, sensors)
            .then(this, [this](const Sensors::DiskSpace& space) {
                sampler_.took(space);
                Q_EMIT sampled();
            });
    }
    if (due.accessories) {
        QtConcurrent::run(&reads_, &Sensors::accessories, sensors)
            .then(this, [this](const Batteries& batteries) {
                sampler_.tookAccessories(batteries);
                Q_EMIT sampled();
            });
    }
    if (due.bluetooth) {
        QtConcurrent::run(&reads_, &Sensors::bluetoothBatteries, sensors)
            .then(this, [this](const Batteries& batteries) { sampler_.tookBluetooth(batteries); });
    }
    if (due.processes) {
        QtConcurrent::run(&reads_, &ProcessSource::snapshot, &services_.processes)
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
