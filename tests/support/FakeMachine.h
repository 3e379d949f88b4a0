#pragma once

#include "engine/Machine.h"
#include "platform/FanReader.h"
#include "platform/ProcessSource.h"
#include "platform/Sensors.h"
#include "platform/TemperatureReader.h"

#include <map>
#include <memory>
#include <string>
#include <utility>

namespace tavrel::testing {

/// A machine whose figures a test gives, and that counts how often each was read.
class FakeMachine : public Sensors, public TemperatureReader, public ProcessSource {
  public:
    std::vector<CPUTicks> ticks = {{}, {}};
    Memory memoryNow = {.used = 6'000'000'000, .total = 16'000'000'000, .swap = 0, .pressure = 1};
    std::optional<double> gpu = 0.12;
    std::optional<std::int64_t> gpuCoreCount;
    std::optional<DiskIO> io = DiskIO{};
    DiskSpace space = {.total = 500'000'000'000, .available = 210'000'000'000};
    std::optional<NetworkBytes> net = NetworkBytes{};
    std::optional<std::string> kind = "Wi-Fi";
    std::optional<double> load = 1.25;
    std::optional<Battery> cell;
    std::vector<Accessory> devices;
    std::vector<Accessory> audio;
    std::optional<ThermalState> heat = ThermalState::nominal;
    Temperatures temperatures = {.cpu = 54.4, .gpu = std::nullopt};
    std::vector<ProcessInfo> processes;

    struct Fans final : FanReader {
        std::vector<Fan> list;
        bool controllable = false;
        int reads = 0;

        std::vector<Fan> read() override { return ++reads, list; }
        bool isControllable() override { return controllable; }
    } fans;

    /// One second of work of every processor.
    void work(std::uint64_t busy, std::uint64_t idle) {
        for (auto& processor : ticks) {
            processor.user += busy;
            processor.idle += idle;
        }
    }

    /// How often each was read since the last call, those that were.
    [[nodiscard]] std::map<std::string, int> takeReads() {
        if (const int read = std::exchange(fans.reads, 0); read > 0) reads_["fans"] = read;
        return std::exchange(reads_, {});
    }

    std::vector<CPUTicks> cpuTicks() override { return count("cpu"), ticks; }
    Memory memory() override { return count("memory"), memoryNow; }
    std::optional<double> gpuUsage() override { return count("gpu"), gpu; }
    std::optional<std::int64_t> gpuCores() override { return gpuCoreCount; }
    std::string chipName() override { return "Example 9000"; }
    std::int64_t activeProcessors() override { return static_cast<std::int64_t>(ticks.size()); }
    std::optional<DiskIO> diskIO() override { return count("diskIO"), io; }
    DiskSpace diskSpace() const override { return space; }
    std::optional<NetworkBytes> networkBytes() override { return count("network"), net; }
    std::optional<std::string> connectionKind() override { return count("connection"), kind; }
    std::optional<double> loadAverage() override { return count("load"), load; }
    std::optional<Battery> battery() override { return count("battery"), cell; }
    std::vector<Accessory> accessories() const override { return devices; }
    std::vector<Accessory> bluetoothBatteries() const override { return audio; }
    std::optional<ThermalState> thermalState() override { return count("thermal"), heat; }
    Temperatures read() override { return count("temperature"), temperatures; }

    std::vector<ProcessInfo> snapshot() override { return processes; }

    /// The same machine by the readers that a program asks.
    [[nodiscard]] static Machine readers(const std::shared_ptr<FakeMachine>& machine) {
        return {machine, machine, {machine, &machine->fans}, machine};
    }

  private:
    void count(const char* what) { ++reads_[what]; }

    std::map<std::string, int> reads_;
};

}  // namespace tavrel::testing
