#include "FixtureTree.h"
#include "platform/linux/figures/ChipName.h"
#include "platform/linux/figures/CpuFigures.h"
#include "platform/linux/figures/DiskFigures.h"
#include "platform/linux/figures/LinuxSensors.h"
#include "platform/linux/figures/MemoryFigures.h"
#include "platform/linux/figures/NetworkFigures.h"
#include "platform/linux/hwmon/HeatLimits.h"
#include "platform/linux/kernel/KernelFile.h"
#include "platform/linux/processes/ProcProcesses.h"
#include "support/Sandbox.h"

#include <cstdint>
#include <ctime>
#include <limits>
#include <sstream>
#include <string>
#include <tuple>
#include <unistd.h>
#include <vector>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::plant;
using testing::Sandbox;
using State = Sensors::ThermalState;

constexpr std::int64_t kibibyte = 1024;

class LinuxSensorsTest : public ::testing::Test {
  protected:
    [[nodiscard]] LinuxSensors sensors() const {
        return {{.proc = sandbox.path("proc"), .sys = sandbox.path("sys"), .home = sandbox.root(), .bus = ""},
                nullptr};
    }

    Sandbox sandbox;
};

constexpr const char* desktop = R"(
    proc/stat = cpu 9 9 9 9\ncpu0 100 5 30 900 70 3 4 11 50 2\ncpu2 10 0 20 80 0 0 0 0 0 0\nintr 1 cpu9
    proc/meminfo = MemTotal: 1000 kB\nMemFree: 100 kB\nMemAvailable: 600 kB\nSwapTotal: 50 kB\nSwapFree: 20 kB
    proc/pressure/memory = some avg10=12.50 avg60=0.00 avg300=0.00 total=1\nfull avg10=90.00
    proc/loadavg = 0.75 1.50 2.00 3/400 999
    proc/diskstats = 8 0 sda 1 0 10 0 2 0 20 0 0\n8 1 sda1 1 0 10 0 2 0 20 0 0\n7 0 loop0 1 0 9 0 1 0 9 0 0\n104 0 cciss/c0d0 1 0 1 0 1 0 1 0
    sys/block/sda/device/
    sys/block/loop0/
    sys/block/cciss!c0d0/device/
    proc/net/dev = Inter-| Receive\n face |bytes\n lo: 7 0 0 0 0 0 0 0 7 0\n eth0:1000 0 0 0 0 0 0 0 50 0\n br0: 999 0 0 0 0 0 0 0 999 0
    sys/class/net/eth0/device/
    sys/class/net/eth0/type = 1
    sys/class/net/br0/type = 1
    proc/net/route = Iface Destination\nbr0 00000000 0 0003 0 0 425 00000000\neth0 00000000 0 0003 0 0 100 00000000\ntun0 00000000 0 0000 0 0 1 00000000\neth0 000AA8C0 0 0001 0 0 0 00FFFFFF
    proc/cpuinfo = processor : 0\nmodel name : Intel(R) Core(TM) i7-8550U CPU @ 1.80GHz\nflags : fpu
    sys/devices/system/cpu/online = 0,2
    sys/class/hwmon/hwmon0/ name=nvme temp1_input=99000 temp1_crit=84000
    sys/class/hwmon/hwmon3/ name=coretemp temp1_label=Package~id~0 temp1_input=86000 temp1_max=80000 temp1_crit=100000
)";

TEST_F(LinuxSensorsTest, ReadsADesktop) {
    plant(sandbox, desktop);
    LinuxSensors machine = sensors();
    EXPECT_THAT(machine.cpuTicks(),
                ElementsAre(Sensors::CPUTicks{.user = 100, .system = 37, .idle = 970, .nice = 5},
                            Sensors::CPUTicks{.user = 10, .system = 20, .idle = 80, .nice = 0}));
    EXPECT_EQ(machine.memory(),
              (Sensors::Memory{
                  .used = 400 * kibibyte, .total = 1000 * kibibyte, .swap = 30 * kibibyte, .pressure = 2}));
    EXPECT_EQ(machine.loadAverage(), 0.75);
    EXPECT_EQ(machine.diskIO(), (Sensors::DiskIO{.read = 5632, .write = 10752}));
    EXPECT_EQ(machine.networkBytes(), (Sensors::NetworkBytes{.received = 1000, .sent = 50}));
    EXPECT_EQ(machine.connectionKind(), "Ethernet");
    EXPECT_EQ(machine.chipName(), "Intel Core i7-8550U");
    EXPECT_EQ(machine.activeProcessors(), 2);
    EXPECT_EQ(machine.thermalState(), State::fair);  // the disk is nobody's business here
    EXPECT_GT(machine.diskSpace().available.value_or(0), 0);
    EXPECT_GE(machine.diskSpace().total, machine.diskSpace().available);
    EXPECT_EQ(machine.battery(), std::nullopt);
    EXPECT_EQ(machine.gpuUsage(), std::nullopt);
}

TEST_F(LinuxSensorsTest, AMachineThatTellsNothingHasNoFigures) {
    LinuxSensors nowhere({.proc = sandbox.path("proc"),
                          .sys = sandbox.path("sys"),
                          .home = sandbox.path("missing"),
                          .bus = "unix:path=" + sandbox.path("no-bus").native()},
                         nullptr);
    EXPECT_THAT(nowhere.cpuTicks(), IsEmpty());
    EXPECT_EQ(nowhere.memory(), Sensors::Memory());
    EXPECT_EQ(nowhere.diskIO(), std::nullopt);
    EXPECT_EQ(nowhere.diskSpace(), Sensors::DiskSpace());
    EXPECT_EQ(nowhere.networkBytes(), std::nullopt);
    EXPECT_EQ(nowhere.connectionKind(), std::nullopt);
    EXPECT_EQ(nowhere.loadAverage(), std::nullopt);
    EXPECT_EQ(nowhere.battery(), std::nullopt);
    EXPECT_EQ(nowhere.gpuUsage(), std::nullopt);
    EXPECT_EQ(nowhere.thermalState(), std::nullopt);
    EXPECT_EQ(nowhere.chipName(), "");
    EXPECT_GT(nowhere.activeProcessors(), 0);
    EXPECT_THAT(nowhere.accessories(), IsEmpty());
    EXPECT_THAT(nowhere.bluetoothBatteries(), IsEmpty());

    // In a container some files are there.
    plant(sandbox,
          "proc/meminfo = MemTotal: 8 kB\nproc/net/dev = lo: 1 0 0 0 0 0 0 0 1\\neth0: 5 0 0 0 0 0 0 0 6");
    EXPECT_EQ(nowhere.memory(), (Sensors::Memory{.total = 8 * kibibyte}));
    EXPECT_EQ(nowhere.networkBytes(), (Sensors::NetworkBytes{.received = 5, .sent = 6}));
}

TEST_F(LinuxSensorsTest, ReadsThisMachineAndThisVeryTest) {
    const auto machine = linuxSensors(sandbox.root());
    const Sensors::Memory memory = machine->memory();
    EXPECT_GT(memory.used.value_or(0), 0);
    EXPECT_LT(memory.used, memory.total);
    EXPECT_EQ(machine->cpuTicks().size(), static_cast<std::size_t>(machine->activeProcessors()));
    EXPECT_NE(machine->chipName(), "");
    EXPECT_GE(machine->loadAverage().value_or(-1), 0);

    sandbox.link("proc/" + std::to_string(::getpid()), "/proc/self");  // and no other process
    const auto work = [](std::chrono::nanoseconds) {
        for (const std::clock_t start = std::clock(); std::clock() - start < CLOCKS_PER_SEC / 10;) {
        }
    };
    const auto listed =
        ProcProcesses(sandbox.path("proc"), {ProcProcesses::systemTime().now, work}).snapshot();
    ASSERT_EQ(listed.size(), 1U);
    EXPECT_EQ(listed[0].pid, ::getpid());
    EXPECT_EQ(listed[0].name, "tavrel_platform_tests");
    EXPECT_GT(listed[0].cpu, 0);
    EXPECT_GT(listed[0].memory, 1 << 20);
}

TEST_F(LinuxSensorsTest, IdleTimeNeverRunsBackwards) {
    LinuxSensors machine = sensors();
    const auto idleAfter = [&](const std::string& rows) {
        sandbox.text("proc/stat", rows);
        std::vector<std::uint64_t> idle;
        for (const auto& ticks : machine.cpuTicks()) idle.push_back(ticks.idle);
        return idle;
    };
    EXPECT_THAT(idleAfter("cpu0 10 0 5 100 50\ncpu1 10 0 5 200 0\n"), ElementsAre(150, 200));
    EXPECT_THAT(idleAfter("cpu0 11 0 5 110 20\ncpu1 11 0 5 210 0\n"), ElementsAre(150, 210));
    EXPECT_THAT(idleAfter("cpu1 12 0 5 190 0\n"), ElementsAre(210));
    // The one that was away does not owe anything; the other was counted anew.
    EXPECT_THAT(idleAfter("cpu0 11 0 5 30 0\ncpu1 0 0 0 3 0\n"), ElementsAre(30, 3));
    EXPECT_THAT(idleAfter("cpu0 11 0 5 29 0\ncpu1 0 0 0 2 0\n"), ElementsAre(30, 3));
}

TEST_F(LinuxSensorsTest, APulledAdapterDoesNotLetTheTunnelCount) {
    plant(sandbox, "sys/class/net/usb0/device/");
    LinuxSensors machine = sensors();
    sandbox.text("proc/net/dev", "usb0: 5 0 0 0 0 0 0 0 6\ntun0: 900 0 0 0 0 0 0 0 900\n");
    EXPECT_EQ(machine.networkBytes(), (Sensors::NetworkBytes{.received = 5, .sent = 6}));
    sandbox.text("proc/net/dev", "tun0: 900 0 0 0 0 0 0 0 900\n");
    EXPECT_EQ(machine.networkBytes(), Sensors::NetworkBytes());
    sandbox.text("proc/net/dev", "tun0: 900 0 0 0 0 0 0 0 900\nusb0: 7 0 0 0 0 0 0 0 8\n");
    EXPECT_EQ(machine.networkBytes(), (Sensors::NetworkBytes{.received = 7, .sent = 8}));
}

TEST_F(LinuxSensorsTest, NamesTheConnection) {
    plant(sandbox, R"(
        sys/class/net/wlan0/phy80211 -> ../../phy0
        sys/class/net/phy0/
        sys/class/net/wlan1/wireless/
        sys/class/net/wlan1/device/
        sys/class/net/wlan1/type = 1
        sys/class/net/br0/type = 1
        sys/class/net/tun0/device/
        sys/class/net/tun0/type = 65534
    )");
    const std::string zeros(32, '0');
    const std::string route6 = zeros + " 00 " + zeros + " 00 " + zeros;
    const std::tuple<std::string, std::string, std::optional<std::string>> cases[] = {
        {"wlan1 00000000 0 0003 0 0 600 00000000\n", "", "Wi-Fi"},
        {"br0 00000000 0 0003 0 0 0 00000000\n", "", "br0"},
        {"tun0 00000000 0 0003 0 0 0 00000000\n", "", "tun0"},
        {"b\xFF 00000000 0 0003 0 0 0 00000000\n", "", "b\uFFFD"},
        {"br0 00000000 0 0003 0 0 0 00000080\n", route6 + " 000000ff 1 0 00000003 wlan1\n", "Wi-Fi"},
        {"", route6 + " 00000400 1 0 00000003 wlan1\n" + route6 + " 00000064 1 0 00000003 br0\n", "br0"},
        {"", route6 + " ffffffff 1 0 00200200 lo\n", std::nullopt},
        {"br0 00000000 0 0003 0 0 -1 00000000\nbr0 00000000", zeros, std::nullopt},
    };
    LinuxSensors machine = sensors();
    for (const auto& [ipv4, ipv6, kind] : cases) {
        sandbox.text("proc/net/route", ipv4);
        sandbox.text("proc/net/ipv6_route", ipv6);
        EXPECT_EQ(machine.connectionKind(), kind) << ipv4 << ipv6;
    }
}

TEST(KernelFigures, TakeAnyBytes) {
    std::vector<CpuFigures::Row> processors;
    std::vector<DiskFigures::Row> disks;
    std::vector<NetworkFigures::Row> interfaces;
    const std::string huge = "99999999999999999999";
    const std::string most = std::to_string(std::numeric_limits<std::uint64_t>::max());
    const std::string noise =  // separated by semicolons
        ";\n\n;cpu;cpu0 1 2 3;cpu0 1 2 x 4;cpu99999999999 1 2 3 4;cpu1 " + huge +
        " 1 1 1;:;eth0:;eth0: 1 2 3;eth0: " + huge +
        " x x x x x x x 1;8 0 sda;8 0 sda 1 0 -5 0 0 0 5;8 0 sda 1 0 5 0 0 0 " + huge +
        ";some;some avg10=;some avg10=nan;some avg10=-1;full avg10=99.00;MemTotal:;MemTotal: -5 "
        "kB;MemTotal: " +
        most + " kB;" + std::string("\0\xFF:\0 1", 6);
    std::istringstream texts(noise);
    for (std::string text; std::getline(texts, text, ';');) {
        CpuFigures::parse(text, processors);
        DiskFigures::parse(text, disks);
        NetworkFigures::parse(text, interfaces);
        EXPECT_THAT(processors, IsEmpty()) << text;
        EXPECT_TRUE(disks.empty() && interfaces.empty()) << text;
        EXPECT_EQ(MemoryFigures::parse(text), Sensors::Memory()) << text;
        EXPECT_EQ(MemoryFigures::pressureLevel(text), std::nullopt) << text;
    }
    // Broken rows do not take their neighbours along; a last line needs no end.
    CpuFigures::parse("cpu0 1 2\ncpu1 1 2 3 " + most + " 2", processors);
    ASSERT_EQ(processors.size(), 1U);
    EXPECT_EQ(processors[0].processor, 1U);
    const std::string named = "x\na b: 1 2\nodd\xFF:1 0 0 0 0 0 0 0 " + most;
    NetworkFigures::parse(named, interfaces);
    ASSERT_EQ(interfaces.size(), 1U);
    EXPECT_EQ(interfaces[0].name, "odd\xFF");
}

TEST(KernelFigures, MemoryThatDoesNotAddUp) {
    EXPECT_EQ(MemoryFigures::parse("MemTotal: 10 kB\nMemFree: 2 kB\nBuffers: 1 kB\nCached: 3 kB").used,
              4 * kibibyte);
    EXPECT_EQ(MemoryFigures::parse("MemTotal: 10 kB\nMemAvailable: 12 kB").used, 0);
    EXPECT_EQ(MemoryFigures::parse("SwapTotal: 10 kB\nSwapFree: 12 kB").swap, 0);
    EXPECT_EQ(MemoryFigures::pressureLevel("some avg10=0.00 avg60=99.00 total=0"), 1);
    EXPECT_EQ(MemoryFigures::pressureLevel("full avg10=0.00\nsome avg10=55.10"), 4);
}

TEST(KernelFigures, CountsProcessors) {
    EXPECT_EQ(CpuFigures::countOf("0-3,6"), 5);
    for (const char* broken : {"", "3-1", "0-", "0,,1"}) EXPECT_EQ(CpuFigures::countOf(broken), 0) << broken;
}

TEST(ChipName, IsWhatPeopleSay) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"AMD Ryzen 7 5800X 8-Core Processor             ", "AMD Ryzen 7 5800X"},
        {"AMD Ryzen 7 PRO 7840U w/ Radeon 780M Graphics", "AMD Ryzen 7 PRO 7840U"},
        {"AMD Ryzen 5 3500U with Radeon Vega Mobile Gfx", "AMD Ryzen 5 3500U"},
        {"12th Gen Intel(R) Core(TM) i7-1260P", "12th Gen Intel Core i7-1260P"},
        {"Intel(R) Core(TM)2 Duo CPU     T7300  @ 2.00GHz", "Intel Core 2 Duo T7300"},
        {"Intel(R) Xeon(R) Processor @ 2.60GHz", "Intel Xeon"},
        {std::string_view("Raspberry Pi 4 Model B Rev 1.1\0", 31), "Raspberry Pi 4 Model B Rev 1.1"},
        {"\xFF(R)(TM)", "\uFFFD"},
    };
    for (const auto& [name, tidied] : cases) EXPECT_EQ(ChipName::tidied(name), tidied);
    EXPECT_EQ(ChipName::inProcessors("processor: 0\nCPU implementer\t: 0x41\n\nHardware\t: BCM2835\n"),
              "BCM2835");
    EXPECT_EQ(ChipName::makerInProcessors("CPU implementer\t: 0x51"), "Qualcomm");
    EXPECT_EQ(ChipName::inProcessors("model name\nmodel name:"), "");
}

TEST(HeatLimits, TellsByTheSensorNearestToItsLimit) {
    const Sandbox sandbox;
    const std::string cpu = "sys/class/hwmon/hwmon1/";
    plant(sandbox, R"(
        sys/class/hwmon/hwmon0/ name=acpitz temp1_input=60000 temp1_crit=120000
        sys/class/hwmon/hwmon0/ temp2_input=90000 temp2_crit=-273200 temp3_input=90000
        sys/class/hwmon/hwmon1/ name=k10temp temp1_input=50000 temp1_max=100000
    )");
    HeatLimits limits(sandbox.path("sys"));
    using enum Sensors::ThermalState;
    const std::pair<const char*, State> cases[] = {
        {"84999", nominal}, {"85000", fair}, {"95000", serious}, {"100000", critical}, {"-5000", nominal},
    };
    for (const auto& [heat, state] : cases) {
        sandbox.text(cpu + "temp1_input", heat);
        EXPECT_EQ(limits.state(), state) << heat;
    }
    // A sensor that fails is looked for again, and may be elsewhere by then.
    sandbox.text(cpu + "temp1_input", "");
    EXPECT_EQ(limits.state(), State::nominal);
    sandbox.text("sys/class/hwmon/hwmon0/temp1_input", "nonsense");
    sandbox.text(cpu + "temp1_input", "97000");
    EXPECT_EQ(limits.state(), State::serious);
}

TEST(KernelFile, ComesBackAfterAFailure) {
    const Sandbox sandbox;
    KernelFile file(sandbox.path("figure"));
    EXPECT_EQ(file.read(), std::nullopt);
    sandbox.folder("figure");  // can be opened and not be read
    EXPECT_EQ(file.read(), std::nullopt);
    ::rmdir(sandbox.path("figure").c_str());
    const std::string large(100'000, 'x');
    for (const std::string& content : {std::string("1"), std::string(), large, std::string("2")}) {
        sandbox.text("figure", content);
        EXPECT_TRUE(file.read() == content) << content.size();
    }
}

}  // namespace
}  // namespace tavrel
