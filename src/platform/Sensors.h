#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavrel {

/// Reads raw counters of the running machine; computes no rates and keeps no history. Each value is nullopt,
/// empty or without fields set where the machine does not provide it. Not thread-safe, except for methods
/// that say otherwise.
class Sensors {
  public:
    /// Ticks that one logical processor has spent since the start of the system.
    struct CPUTicks {
        std::uint64_t user = 0;
        std::uint64_t system = 0;
        std::uint64_t idle = 0;
        std::uint64_t nice = 0;

        bool operator==(const CPUTicks&) const = default;
    };

    /// Bytes, and the kernel's level of memory pressure: 1 normal, 2 elevated, 4 critical.
    struct Memory {
        std::optional<std::int64_t> used;
        std::optional<std::int64_t> total;
        std::optional<std::int64_t> swap;
        std::optional<std::int64_t> pressure;

        bool operator==(const Memory&) const = default;
    };

    /// The volume that holds the home folder, in bytes.
    struct DiskSpace {
        std::optional<std::int64_t> total;
        std::optional<std::int64_t> available;

        bool operator==(const DiskSpace&) const = default;
    };

    struct Battery {
        std::int64_t percent = 0;
        bool charging = false;
        bool pluggedIn = false;
        std::optional<std::int64_t> minutesLeft;  // none on mains, or while the system is still estimating
        std::optional<std::int64_t> cycles;
        std::optional<std::int64_t> health;  // percent of the design capacity, at most 100
        std::optional<std::int64_t> adapterWatts;
        std::optional<double> temperature;  // degrees Celsius

        bool operator==(const Battery&) const = default;
    };

    /// A battery-powered device beside the machine.
    struct Accessory {
        std::string name;
        std::int64_t percent = 0;

        bool operator==(const Accessory&) const = default;
    };

    /// Bytes since the start of the system.
    struct DiskIO {
        std::uint64_t read = 0;
        std::uint64_t write = 0;

        bool operator==(const DiskIO&) const = default;
    };
    struct NetworkBytes {
        std::uint64_t received = 0;
        std::uint64_t sent = 0;

        bool operator==(const NetworkBytes&) const = default;
    };

    /// How hard the machine holds itself back for its heat.
    enum class ThermalState { nominal, fair, serious, critical };

    virtual ~Sensors() = default;

    /// One entry for each logical processor that is at work; empty on failure.
    [[nodiscard]] virtual std::vector<CPUTicks> cpuTicks() = 0;
    [[nodiscard]] virtual Memory memory() = 0;
    /// The busiest graphics device, 0 to 1. A sleeping one is left asleep.
    [[nodiscard]] virtual std::optional<double> gpuUsage() = 0;
    [[nodiscard]] virtual std::optional<std::int64_t> gpuCores() = 0;
    [[nodiscard]] virtual std::string chipName() = 0;
    [[nodiscard]] virtual std::int64_t activeProcessors() = 0;
    [[nodiscard]] virtual std::optional<DiskIO> diskIO() = 0;
    /// May block on a slow volume; may run beside the other operations.
    [[nodiscard]] virtual DiskSpace diskSpace() const = 0;
    [[nodiscard]] virtual std::optional<NetworkBytes> networkBytes() = 0;
    /// "Wi-Fi", "Ethernet", or the name of the interface; nothing without a network.
    [[nodiscard]] virtual std::optional<std::string> connectionKind() = 0;
    /// Of the last minute.
    [[nodiscard]] virtual std::optional<double> loadAverage() = 0;
    /// Nothing on a machine without a battery of its own.
    [[nodiscard]] virtual std::optional<Battery> battery() = 0;
    /// Input devices, sorted by name. May block on one that sleeps; may run beside the other operations.
    [[nodiscard]] virtual std::vector<Accessory> accessories() const = 0;
    /// Devices of other kinds. Blocks for up to 20 seconds; may run beside the other operations.
    [[nodiscard]] virtual std::vector<Accessory> bluetoothBatteries() const = 0;
    [[nodiscard]] virtual std::optional<ThermalState> thermalState() = 0;
};

}  // namespace tavrel
