#include "platform/linux/figures/LinuxSensors.h"

#include "core/Files.h"
#include "core/Text.h"
#include "platform/linux/figures/ChipName.h"
#include "platform/linux/figures/MemoryFigures.h"
#include "platform/linux/graphics/LoadedNvidiaLibrary.h"
#include "platform/linux/kernel/Attributes.h"
#include "platform/linux/kernel/KernelText.h"
#include "platform/linux/power/PowerFigures.h"
#include "platform/linux/power/PowerSupply.h"
#include "platform/linux/power/UPower.h"

#include <algorithm>
#include <sys/statvfs.h>
#include <unistd.h>
#include <utility>

namespace tavrel {

namespace fs = std::filesystem;

namespace {

/// Enough for the routes of a desktop, and for the processors before what follows them in /proc/cpuinfo.
constexpr std::size_t longText = std::size_t{256} << 10;

std::string longTextOf(const fs::path& file) {
    return Attributes::text(file, longText).value_or("");
}

std::optional<std::int64_t> bytesOf(std::uint64_t blocks, std::uint64_t blockBytes) {
    std::int64_t bytes = 0;
    if (__builtin_mul_overflow(blocks, blockBytes, &bytes)) return std::nullopt;
    return bytes;
}

void add(const Sensors::NetworkBytes& bytes, Sensors::NetworkBytes& sum) {
    sum.received += bytes.received;
    sum.sent += bytes.sent;
}

}  // namespace

LinuxSensors::LinuxSensors(Roots roots, std::unique_ptr<NvidiaLibrary> nvidia, SystemBus::Now now)
    : roots_(std::move(roots)),
      bus_(roots_.bus, now),
      stat_(roots_.proc / "stat"),
      meminfo_(roots_.proc / "meminfo"),
      pressure_(roots_.proc / "pressure/memory"),
      diskstats_(roots_.proc / "diskstats"),
      netDev_(roots_.proc / "net/dev"),
      loadavg_(roots_.proc / "loadavg"),
      realDisks_(roots_.sys / "block"),
      realInterfaces_(roots_.sys / "class/net"),
      graphics_(roots_.sys, roots_.proc, std::move(nvidia), std::move(now)),
      heat_(roots_.sys) {}

std::vector<Sensors::CPUTicks> LinuxSensors::cpuTicks() {
    CpuFigures::parse(stat_.read().value_or(""), processors_);
    idle_.apply(processors_);
    std::vector<CPUTicks> ticks;
    ticks.reserve(processors_.size());
    for (const CpuFigures::Row& row : processors_) ticks.push_back(row.ticks);
    return ticks;
}

Sensors::Memory LinuxSensors::memory() {
    Memory memory = MemoryFigures::parse(meminfo_.read().value_or(""));
    memory.pressure = MemoryFigures::pressureLevel(pressure_.read().value_or(""));
    return memory;
}

std::string LinuxSensors::chipName() {
    const std::string processors = longTextOf(roots_.proc / "cpuinfo");
    std::string name = ChipName::tidied(ChipName::inProcessors(processors));
    if (name.empty()) {
        const auto model = Attributes::text(roots_.sys / "firmware/devicetree/base/model");
        name = ChipName::tidied(model.value_or(""));
    }
    return name.empty() ? ChipName::makerInProcessors(processors) : name;
}

std::int64_t LinuxSensors::activeProcessors() {
    const auto online = Attributes::text(roots_.sys / "devices/system/cpu/online");
    const std::int64_t count = CpuFigures::countOf(online.value_or(""));
    return count > 0 ? count : std::max(::sysconf(_SC_NPROCESSORS_ONLN), 1L);
}

std::optional<Sensors::DiskIO> LinuxSensors::diskIO() {
    DiskFigures::parse(diskstats_.read().value_or(""), disks_);
    std::optional<DiskIO> sum;
    for (std::size_t row = 0; row < disks_.size(); ++row) {
        // Partitions, and what is built of disks, would count the same bytes again.
        if (!realDisks_.isReal(row, disks_[row].name)) continue;
        if (!sum) sum.emplace();
        sum->read += disks_[row].bytes.read;
        sum->write += disks_[row].bytes.write;
    }
    return sum;
}

Sensors::DiskSpace LinuxSensors::diskSpace() const {
    struct statvfs volume {};
    if (::statvfs(roots_.home.c_str(), &volume) != 0) return {};
    return {.total = bytesOf(volume.f_blocks, volume.f_frsize),
            .available = bytesOf(volume.f_bavail, volume.f_frsize)};
}

std::optional<Sensors::NetworkBytes> LinuxSensors::networkBytes() {
    NetworkFigures::parse(netDev_.read().value_or(""), interfaces_);
    if (interfaces_.empty()) return std::nullopt;
    NetworkBytes ofReal;
    NetworkBytes ofAll;
    for (std::size_t row = 0; row < interfaces_.size(); ++row) {
        const NetworkFigures::Row& interface = interfaces_[row];
        if (interface.name != "lo") add(interface.bytes, ofAll);
        if (!realInterfaces_.isReal(row, interface.name)) continue;
        add(interface.bytes, ofReal);
        hasRealInterfaces_ = true;
    }
    // Bridges and tunnels repeat the bytes of hardware; in a container they are all there is. A machine whose
    // last adapter was pulled does not turn into one, or its sum would jump.
    return hasRealInterfaces_ ? ofReal : ofAll;
}

std::optional<std::string> LinuxSensors::defaultInterface() const {
    auto interface = NetworkFigures::defaultInterface(longTextOf(roots_.proc / "net/route"));
    return interface ? interface : NetworkFigures::defaultInterface6(longTextOf(roots_.proc / "net/ipv6_route"));
}

std::optional<std::string> LinuxSensors::connectionKind() {
    const auto name = defaultInterface();
    if (!name) return std::nullopt;
    constexpr std::int64_t ethernet = 1;  // ARPHRD_ETHER
    const fs::path interface = roots_.sys / "class/net" / *name;
    if (Files::exists(interface / "wireless") || Files::exists(interface / "phy80211")) return "Wi-Fi";
    if (Attributes::number(interface / "type") == ethernet && Files::exists(interface / "device")) {
        return "Ethernet";
    }
    return Text::replaceInvalidUtf8(*name);
}

std::optional<double> LinuxSensors::loadAverage() {
    std::string_view words = loadavg_.read().value_or("");
    return KernelText::decimal(KernelText::takeWord(words));
}

std::optional<Sensors::Battery> LinuxSensors::battery() {
    auto battery = PowerFigures::battery(PowerSupply::readAll(roots_.sys, PowerSupply::Of::machine));
    if (battery && !battery->pluggedIn) {
        if (const auto minutes = UPower(bus_).minutesLeft()) battery->minutesLeft = minutes;
    }
    return battery;
}

// What may run beside the other questions asks the bus by a connection of its own.

std::vector<Sensors::Accessory> LinuxSensors::accessories() const {
    SystemBus bus(roots_.bus);
    auto devices = UPower(bus).inputDevices();
    if (devices) return std::move(*devices);
    return PowerFigures::accessories(PowerSupply::readAll(roots_.sys, PowerSupply::Of::devices));
}

std::vector<Sensors::Accessory> LinuxSensors::bluetoothBatteries() const {
    SystemBus bus(roots_.bus);
    return UPower(bus).otherDevices().value_or(std::vector<Accessory>());
}

std::unique_ptr<Sensors> linuxSensors(const fs::path& home) {
    LinuxSensors::Roots roots;
    roots.home = home;
    return std::make_unique<LinuxSensors>(std::move(roots), std::make_unique<LoadedNvidiaLibrary>());
}

}  // namespace tavrel
