#include "platform/macos/MacSensors.h"

#include "platform/macos/Accessories.h"
#include "platform/macos/BatteryReading.h"
#include "platform/macos/BluetoothReport.h"
#include "platform/macos/ChipName.h"
#include "platform/macos/ConnectionName.h"
#include "platform/macos/InterfaceRecords.h"
#include "platform/macos/NativeBytes.h"

#include <algorithm>
#include <array>

namespace tavrel {

namespace {

using namespace std::chrono_literals;

// The list of interfaces with counters of 64 bits: CTL_NET, PF_ROUTE, 0, 0, NET_RT_IFLIST2, 0.
constexpr std::array interfaceList{4, 17, 0, 0, 6, 0};

constexpr std::size_t usedSwapAt = 16;  // in the kernel's `xsw_usage`, after the total and the available

/// Memory that cannot be taken back without cost: neither files that can be read again nor what its owner
/// has declared as lost already.
std::int64_t usedMemory(const MachineCalls::PageCounts& pages, std::uint32_t pageSize) {
    const std::int64_t held = std::int64_t{pages.wired} + pages.compressor + pages.internal;
    return std::max<std::int64_t>(0, held - pages.purgeable) * pageSize;
}

/// A number in the answer of `systemControl`; one that is cut short has none.
template <typename Number>
std::optional<std::int64_t> controlValue(const std::optional<MachineCalls::Bytes>& bytes,
                                         std::size_t offset) {
    if (!bytes || bytes->size() < offset + sizeof(Number)) return std::nullopt;
    return static_cast<std::int64_t>(nativeAt<Number>(*bytes, offset));
}

/// Adds a counter, if it is one; false when the sum is beyond 64 bits.
bool add(std::uint64_t& sum, const Property& counter) {
    return !__builtin_add_overflow(sum, counter.counter().value_or(0), &sum);
}

}  // namespace

std::vector<Sensors::CPUTicks> MacSensors::cpuTicks() {
    const auto load = calls_.processorLoad();
    if (!load || load->counters.size() / 4 < load->processors) return {};
    std::vector<CPUTicks> ticks(load->processors);
    auto counter = load->counters.begin();
    for (CPUTicks& one : ticks) {
        one.user = *counter++;
        one.system = *counter++;
        one.idle = *counter++;
        one.nice = *counter++;
    }
    return ticks;
}

Sensors::Memory MacSensors::memory() {
    Memory memory;
    if (const auto pages = calls_.pageCounts()) memory.used = usedMemory(*pages, calls_.pageSize());
    memory.total = calls_.physicalMemory();
    memory.swap = controlValue<std::uint64_t>(calls_.systemControl("vm.swapusage"), usedSwapAt);
    memory.pressure =
        controlValue<std::uint32_t>(calls_.systemControl("kern.memorystatus_vm_pressure_level"), 0);
    return memory;
}

std::optional<double> MacSensors::gpuUsage() {
    const auto services = calls_.services("IOAccelerator", {"PerformanceStatistics"});
    if (!services) return std::nullopt;
    std::optional<double> highest;
    for (const Property& service : *services) {
        const Property& statistics = service["PerformanceStatistics"];
        const Property& usual = statistics["Device Utilization %"];
        const auto percent = (usual.exists() ? usual : statistics["GPU Activity(%)"]).number();
        if (percent) highest = std::max(highest.value_or(*percent / 100.0), *percent / 100.0);
    }
    return highest;
}

std::optional<std::int64_t> MacSensors::gpuCores() {
    return calls_.firstService("AGXAccelerator", {"gpu-core-count"})["gpu-core-count"].integer();
}

std::string MacSensors::chipName() {
    if (!chipName_) {
        chipName_ =
            chipNameOf(calls_.systemControl("machdep.cpu.brand_string").value_or(MachineCalls::Bytes()));
    }
    return *chipName_;
}

std::int64_t MacSensors::activeProcessors() {
    return calls_.activeProcessors();
}

std::optional<Sensors::DiskIO> MacSensors::diskIO() {
    const auto services = calls_.services("IOBlockStorageDriver", {"Statistics"});
    if (!services) return std::nullopt;
    DiskIO sum;
    for (const Property& service : *services) {
        const Property& statistics = service["Statistics"];
        if (!add(sum.read, statistics["Bytes (Read)"])) return std::nullopt;
        if (!add(sum.write, statistics["Bytes (Write)"])) return std::nullopt;
    }
    return sum;
}

Sensors::DiskSpace MacSensors::diskSpace() const {
    const auto capacity = calls_.volumeCapacity(home_);
    return {capacity.total, capacity.availableForImportantUsage};
}

std::optional<Sensors::NetworkBytes> MacSensors::networkBytes() {
    const auto records = calls_.systemControl(interfaceList);
    if (!records || records->empty()) return std::nullopt;
    return InterfaceRecords::total(*records);
}

std::optional<std::string> MacSensors::connectionKind() {
    const Property network = calls_.storeValue("Tavrel", "State:/Network/Global/IPv4");
    const std::string* primary = network["PrimaryInterface"].text();
    if (primary == nullptr) return std::nullopt;
    return connectionName(*primary, calls_.wifiInterface());
}

std::optional<double> MacSensors::loadAverage() {
    const auto averages = calls_.loadAverages();
    return averages.empty() ? std::nullopt : std::optional(averages.front());
}

std::optional<Sensors::Battery> MacSensors::battery() {
    const Property source = BatteryReading::internalSource(calls_.powerSources());
    if (!source.exists()) return std::nullopt;
    const Property controller =
        calls_.firstService("AppleSmartBattery", {"CycleCount", "BatteryData", "AppleRawMaxCapacity",
                                                  "NominalChargeCapacity", "DesignCapacity", "Temperature"});
    return BatteryReading::battery(source, controller, calls_.externalAdapter());
}

std::vector<Sensors::Accessory> MacSensors::accessories() const {
    const auto services =
        calls_.services("AppleDeviceManagementHIDEventService", {"Product", "BatteryPercent"});
    return services ? accessoriesAmong(*services) : std::vector<Accessory>();
}

std::vector<Sensors::Accessory> MacSensors::bluetoothBatteries() const {
    const CommandResult report =
        shell_.run("/usr/sbin/system_profiler", {"SPBluetoothDataType", "-json"}, 20.0s);
    return report.status == 0 ? BluetoothReport::batteries(report.output) : std::vector<Accessory>();
}

std::optional<Sensors::ThermalState> MacSensors::thermalState() {
    switch (calls_.thermalState()) {
        case 0:
            return ThermalState::nominal;
        case 1:
            return ThermalState::fair;
        case 2:
            return ThermalState::serious;
        default:
            return ThermalState::critical;  // a system that knows more states counts on from here
    }
}

}  // namespace tavrel
