// What the monitor costs this machine while no view of it is drawn; prints JSON, times in milliseconds of
// CPU.
#include "models/status/Monitor.h"

#include "engine/Machine.h"
#include "models/support/Clock.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <sys/resource.h>

#include <fmt/format.h>

namespace {

using namespace tavrel;
using namespace std::chrono_literals;

constexpr std::chrono::seconds interval{2};  // as the monitor has it

struct Spent {
    double milliseconds = 0;  // of all threads, on the processor
    double wakeUps = 0;       // each a wait that ended

    [[nodiscard]] static Spent soFar() {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        const auto of = [](const timeval& time) {
            return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
        };
        return {of(usage.ru_utime) + of(usage.ru_stime), static_cast<double>(usage.ru_nvcsw)};
    }
    [[nodiscard]] Spent since(const Spent& before, double parts) const {
        return {(milliseconds - before.milliseconds) / parts, (wakeUps - before.wakeUps) / parts};
    }
};

MachineSampler::Sources sourcesOf(const Machine& machine) {
    return {*machine.sensors, *machine.temperatures, *machine.fans};
}

/// The mean of many samples in a row, the rarer readings in their share; reads that block are left out.
double sample(const Machine& machine, int watchers) {
    constexpr int samples = 3000;
    Instant now{};
    MachineSampler sampler(sourcesOf(machine), now);
    static_cast<void>(sampler.setWatchers(watchers));
    const Spent before = Spent::soFar();
    for (int count = 0; count < samples; ++count) {
        const auto due = sampler.sample(now += interval);
        if (due.diskSpace) sampler.setDiskSpace(Sensors::DiskSpace{});
        if (due.accessories) sampler.setAccessories({});
        if (due.bluetooth) sampler.setBluetooth({});
        if (due.processes) sampler.setProcesses(std::vector<ProcessInfo>());
    }
    return Spent::soFar().since(before, samples).milliseconds;
}

void wait(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

/// One tick of the monitor as it runs all day: everything that the process does meanwhile.
Spent unwatched(const Machine& machine) {
    constexpr int ticks = 10;
    const auto clock = systemClock();
    const Monitor monitor({*clock, machine.sensors, machine.temperatures, machine.fans, machine.processes});
    wait(3s);  // between two ticks
    const Spent before = Spent::soFar();
    wait(ticks * interval);
    return Spent::soFar().since(before, ticks);
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const char* home = std::getenv("HOME");
    const Machine machine = Machine::running(home == nullptr ? "/" : home);
    const Spent tick = unwatched(machine);
    std::cout << fmt::format(
        R"({{"unwatchedSample": {:.4f}, "watchedSample": {:.4f}, "unwatchedTick": {:.4f}, "wakeUps": {:.2f}}})"
        "\n",
        sample(machine, 0), sample(machine, 1), tick.milliseconds, tick.wakeUps);
    return EXIT_SUCCESS;
}
