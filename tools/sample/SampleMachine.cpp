#include "sample/SampleMachine.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace tavrel::sample {

SampleMachine::SampleMachine() {
    constexpr std::int64_t gigabyte = 1'000'000'000;
    constexpr std::int64_t processors = 10;
    ticks.assign(processors, {});
    memoryNow = {.used = 11 * gigabyte, .total = 16 * gigabyte, .swap = gigabyte / 2, .pressure = 1};
    gpuCoreCount = 16;
    load = 3.1;
    temperatures = {.cpu = 58.2, .gpu = 51.7};
    fans.list = {{.rpm = 2317, .max = 5900}, {.rpm = 2502, .max = 6300}};
    cell = {.percent = 78,
            .charging = false,
            .pluggedIn = false,
            .minutesLeft = 312,
            .cycles = 141,
            .health = 93,
            .adapterWatts = std::nullopt,
            .temperature = 31.4};
    devices = {{"Magic Keyboard", 64}, {"Magic Mouse", 17}};
    audio = {{"AirPods Pro", 81}};
}

double SampleMachine::seconds(Clock::time_point since) const {
    return std::chrono::duration<double>(Clock::now() - since).count();
}

double SampleMachine::wave(double phase) const {
    constexpr double turns = 2 * std::numbers::pi / 30;  // a second
    const double at = seconds(start_) * turns + phase;
    return 0.5 + 0.3 * std::sin(at) + 0.13 * std::sin(3.7 * at + 1) + 0.07 * std::sin(9.1 * at + 2);
}

std::vector<Sensors::CPUTicks> SampleMachine::cpuTicks() {
    constexpr double ticksPerSecond = 1000;
    const double passed = seconds(std::exchange(counted_, Clock::now())) * ticksPerSecond;
    const double busy = passed * (0.12 + 0.5 * wave(0));
    work(static_cast<std::uint64_t>(busy), static_cast<std::uint64_t>(passed - busy));
    return ticks;
}

std::optional<double> SampleMachine::gpuUsage() {
    return 0.05 + 0.5 * wave(2);
}

std::optional<Sensors::DiskIO> SampleMachine::diskIO() {
    constexpr double read = 3.1e6;  // bytes a second
    constexpr double written = 0.8e6;
    const double passed = seconds(start_);
    return DiskIO{static_cast<std::uint64_t>(passed * read), static_cast<std::uint64_t>(passed * written)};
}

std::optional<Sensors::NetworkBytes> SampleMachine::networkBytes() {
    constexpr double most = 4e6;  // bytes a second
    const double passed = seconds(std::exchange(received_, Clock::now()));
    net->received += static_cast<std::uint64_t>(passed * most * wave(4));
    net->sent += static_cast<std::uint64_t>(passed * most / 20);
    return net;
}

std::vector<ProcessInfo> SampleMachine::snapshot() {
    constexpr std::int64_t megabyte = 1'000'000;
    const double more = wave(1);
    return {
        {.pid = 912,
         .name = "Google Chrome Helper",
         .cpu = 42 + 30 * more,
         .memory = 812 * megabyte,
         .power = 31},
        {.pid = 1204, .name = "Xcode", .cpu = 38.4, .memory = 2310 * megabyte, .power = 22.6},
        {.pid = 161, .name = "WindowServer", .cpu = 11 + 6 * more, .memory = 402 * megabyte, .power = 9.8},
        {.pid = 344, .name = "mds_stores", .cpu = 9.7, .memory = 168 * megabyte, .power = 7.1},
        {.pid = 0, .name = "kernel_task", .cpu = 6.2, .memory = 51 * megabyte, .power = 0},
        {.pid = 701, .name = "Slack", .cpu = 3.8, .memory = 388 * megabyte, .power = 4.4},
        {.pid = 588, .name = "Safari", .cpu = 2.9, .memory = 512 * megabyte, .power = 2.2},
        {.pid = 420, .name = "coreaudiod", .cpu = 2.1, .memory = 27 * megabyte, .power = 1.3},
        {.pid = 1310, .name = "Music", .cpu = 1.6, .memory = 194 * megabyte, .power = 1.1},
        {.pid = 377, .name = "bluetoothd", .cpu = 0.7, .memory = 14 * megabyte, .power = 0.4},
        {.pid = 498, .name = "Finder", .cpu = 0.4, .memory = 121 * megabyte, .power = 0.2},
        {.pid = 512, .name = "Dock", .cpu = 0.2, .memory = 44 * megabyte, .power = 0.1},
    };
}

}  // namespace tavrel::sample
