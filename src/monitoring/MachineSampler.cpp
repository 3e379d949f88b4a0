#include "monitoring/MachineSampler.h"

#include "monitoring/CpuUsage.h"

#include <algorithm>
#include <utility>

namespace tavrel {

namespace {

// Ten seconds, half a minute and a minute: timers come a little early, too.
constexpr std::chrono::milliseconds slow{9'500};
constexpr std::chrono::milliseconds slowUnwatched{29'500};
constexpr std::chrono::milliseconds betweenBluetooth{59'500};
constexpr std::chrono::milliseconds betweenProcesses{8'000};

constexpr double leastElapsed = 0.5;  // seconds; rates of less are noise

void push(std::vector<double>& history, double value) {
    if (history.size() >= MachineSampler::historyLength) history.erase(history.begin());
    history.push_back(value);
}

/// Returns true, and sets `last` to `now`, if `span` has passed since `last`.
bool isDue(std::optional<Instant>& last, Instant now, std::chrono::milliseconds span) {
    if (last && now - *last < span) return false;
    last = now;
    return true;
}

/// The increase of a counter a second; 0 for one that was reset.
double rate(std::uint64_t from, std::uint64_t to, double elapsed) {
    return to < from ? 0 : static_cast<double>(to - from) / elapsed;
}

}  // namespace

MachineSampler::MachineSampler(Sources sources, Instant now)
    : sources_(sources),
      lastTicks_(sources.sensors.cpuTicks()),
      lastNet_(sources.sensors.networkBytes()),
      lastSample_(now) {
    figures_.cores = sources.sensors.activeProcessors();
    figures_.gpuCores = sources.sensors.gpuCores();
    figures_.chip = sources.sensors.chipName();
}

bool MachineSampler::setWatchers(int count) {
    const bool first = count >= 1 && watchers_ == 0;
    watchers_ = count;
    if (first) last_ = {};
    return first;
}

MachineSampler::Due MachineSampler::sample(Instant now) {
    Due due;
    const double elapsed = std::max(std::chrono::duration<double>(now - lastSample_).count(), leastElapsed);
    lastSample_ = now;
    readCpu();
    readMemory();
    if (wants(MenuBarMetric::gpu)) readGpu();
    readDiskIO(elapsed);
    readNetwork(elapsed);
    if (wants(MenuBarMetric::temperature)) readHeat();
    if (isWatched()) figures_.load = sources_.sensors.loadAverage();
    if (isDue(last_.slow, now, slow)) readSlowOnes();
    ask(&Due::diskSpace, last_.diskSpace, isWatched() ? slow : slowUnwatched, due);
    if (!isWatched()) return due;

    ask(&Due::accessories, last_.accessories, slow, due);
    ask(&Due::bluetooth, last_.bluetooth, betweenBluetooth, due);
    ask(&Due::processes, lastProcesses_, betweenProcesses, due);
    return due;
}

void MachineSampler::readCpu() {
    auto ticks = sources_.sensors.cpuTicks();
    if (const auto usage = cpuUsage(lastTicks_, ticks)) figures_.cpu = usage;
    lastTicks_ = std::move(ticks);
    push(figures_.cpuHistory, figures_.cpu.value_or(0));
}

void MachineSampler::readMemory() {
    figures_.memory = sources_.sensors.memory();
    push(figures_.memoryHistory, usedShare(figures_.memory));
}

void MachineSampler::readGpu() {
    figures_.gpu = sources_.sensors.gpuUsage();
    if (figures_.gpu) push(figures_.gpuHistory, *figures_.gpu);
}

/// Counters from before a time when nobody watched would make one giant rate of it.
void MachineSampler::readDiskIO(double elapsed) {
    const auto io = isWatched() ? sources_.sensors.diskIO() : std::nullopt;
    if (io && lastIO_) {
        figures_.diskRead = rate(lastIO_->read, io->read, elapsed);
        figures_.diskWrite = rate(lastIO_->write, io->write, elapsed);
    }
    lastIO_ = io;
}

void MachineSampler::readNetwork(double elapsed) {
    const auto net = sources_.sensors.networkBytes();
    if (wants(MenuBarMetric::network) && net && lastNet_) {
        figures_.download = rate(lastNet_->received, net->received, elapsed);
        figures_.upload = rate(lastNet_->sent, net->sent, elapsed);
        push(figures_.networkHistory, *figures_.download);
    }
    lastNet_ = net;
}

void MachineSampler::readHeat() {
    const Temperatures heat = sources_.temperatures.read();
    figures_.cpuTemp = heat.cpu;
    figures_.gpuTemp = heat.gpu;
    if (isWatched()) figures_.thermalState = sources_.sensors.thermalState();
}

void MachineSampler::readSlowOnes() {
    if (wants(MenuBarMetric::battery)) figures_.battery = sources_.sensors.battery();
    if (!isWatched()) return;

    figures_.fans = sources_.fans.read();
    figures_.fanControlAvailable = !figures_.fans.empty() && sources_.fans.isControllable();
    figures_.connection = sources_.sensors.connectionKind();
}

void MachineSampler::ask(bool Due::*read, std::optional<Instant>& last, std::chrono::milliseconds pace,
                         Due& due) {
    if (underWay_.*read || !isDue(last, lastSample_, pace)) return;
    underWay_.*read = due.*read = true;
}

void MachineSampler::setDiskSpace(Sensors::DiskSpace space) {
    figures_.disk = space;
    underWay_.diskSpace = false;
}

void MachineSampler::setAccessories(std::vector<Sensors::Accessory> accessories) {
    figures_.accessories = std::move(accessories);
    for (const auto& other : bluetooth_) {
        const auto isThis = [&other](const auto& known) { return known.name == other.name; };
        if (std::none_of(figures_.accessories.begin(), figures_.accessories.end(), isThis))
            figures_.accessories.push_back(other);
    }
    underWay_.accessories = false;
}

void MachineSampler::setBluetooth(std::vector<Sensors::Accessory> bluetooth) {
    bluetooth_ = std::move(bluetooth);
    underWay_.bluetooth = false;
}

void MachineSampler::setProcesses(std::vector<ProcessInfo> processes) {
    figures_.processes = std::move(processes);
    underWay_.processes = false;
}

}  // namespace tavrel
