#include "platform/linux/figures/LinuxSensors.h"

#include <cstdlib>
#include <memory>

#include <benchmark/benchmark.h>

namespace tavrel {
namespace {

/// What the monitor reads every two seconds while nobody looks.
void read(Sensors& sensors) {
    benchmark::DoNotOptimize(sensors.cpuTicks());
    benchmark::DoNotOptimize(sensors.memory());
    benchmark::DoNotOptimize(sensors.networkBytes());
}

std::unique_ptr<Sensors> thisMachine() {
    const char* home = std::getenv("HOME");
    return linuxSensors(home == nullptr ? "/" : home);
}

void unwatchedTick(benchmark::State& state) {
    const auto sensors = thisMachine();
    for (auto round : state) read(*sensors);
}

/// The same while a view is open.
void watchedTick(benchmark::State& state) {
    const auto sensors = thisMachine();
    for (auto round : state) {
        read(*sensors);
        benchmark::DoNotOptimize(sensors->gpuUsage());
        benchmark::DoNotOptimize(sensors->diskIO());
        benchmark::DoNotOptimize(sensors->loadAverage());
        benchmark::DoNotOptimize(sensors->thermalState());
    }
}

/// What every fifth tick adds to that.
void slowBlock(benchmark::State& state) {
    const auto sensors = thisMachine();
    for (auto round : state) {
        benchmark::DoNotOptimize(sensors->battery());
        benchmark::DoNotOptimize(sensors->accessories());
        benchmark::DoNotOptimize(sensors->connectionKind());
        benchmark::DoNotOptimize(sensors->diskSpace());
    }
}

BENCHMARK(unwatchedTick);
BENCHMARK(watchedTick);
BENCHMARK(slowBlock);

}  // namespace
}  // namespace tavrel

BENCHMARK_MAIN();
