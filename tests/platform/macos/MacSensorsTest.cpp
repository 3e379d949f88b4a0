#include "platform/macos/InterfaceRecords.h"
#include "platform/macos/MacSensors.h"
#include "platform/simulated/SimulatedMachine.h"
#include "support/ScriptedShell.h"

#include <cstring>
#include <string>
#include <tuple>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Bytes = MachineCalls::Bytes;
using Dictionary = Property::Dictionary;
using testing::ScriptedShell;
using namespace std::chrono_literals;

const std::vector<int> interfaceList{4, 17, 0, 0, 6, 0};

class MacSensorsTest : public ::testing::Test {
  protected:
    SimulatedMachine machine;
    ScriptedShell shell;
    MacSensors sensors{machine, shell, "/Users/ana"};
};

Bytes bytesOf(std::string_view text) {
    const auto* start = reinterpret_cast<const std::byte*>(text.data());
    return {start, start + text.size()};
}

template <typename Number>
void put(Bytes& bytes, std::size_t offset, Number number) {
    std::memcpy(bytes.data() + offset, &number, sizeof number);
}

TEST_F(MacSensorsTest, GivesTheTicksOfEveryProcessor) {
    using Load = MachineCalls::ProcessorLoad;
    const std::vector<Sensors::CPUTicks> both = {{1, 2, 3, 4}, {0xFFFFFFFF, 6, 7, 8}};
    const std::pair<std::optional<Load>, std::vector<Sensors::CPUTicks>> cases[] = {
        {Load{2, {1, 2, 3, 4, 0xFFFFFFFF, 6, 7, 8}}, both},
        {Load{0, {1, 2, 3, 4}}, {}},
        {Load{2, {1, 2, 3, 4, 5, 6, 7}}, {}},
        {Load{1, {}}, {}},
        {std::nullopt, {}}};
    for (const auto& [load, ticks] : cases) {
        machine.load = load;
        EXPECT_EQ(sensors.cpuTicks(), ticks);
    }
}

TEST_F(MacSensorsTest, TellsEachFigureOfTheMemoryByItself) {
    constexpr std::int64_t gibibyte = std::int64_t{1} << 30;
    machine.memory = 16 * gibibyte;
    EXPECT_EQ(sensors.memory(), (Sensors::Memory{.total = 16 * gibibyte}));

    machine.pages = {0xFFFFFFFF, 20, 30, 5};
    Bytes& swap = machine.controls["vm.swapusage"];
    swap.resize(32, std::byte{1});
    put(swap, 16, 20 * gibibyte);
    machine.controls["kern.memorystatus_vm_pressure_level"] = bytesOf({"\x04\0\0\0", 4});
    EXPECT_EQ(sensors.memory(),
              (Sensors::Memory{(0xFFFFFFFF + std::int64_t{45}) * 16384, 16 * gibibyte, 20 * gibibyte, 4}));

    swap.resize(23);
    machine.controls["kern.memorystatus_vm_pressure_level"].clear();
    EXPECT_EQ(sensors.memory().swap, std::nullopt);
    EXPECT_EQ(sensors.memory().pressure, std::nullopt);
}

TEST_F(MacSensorsTest, TheBusiestGraphicsDeviceCountsAndTheFirstTellsItsCores) {
    const char* device = "Device Utilization %";
    const char* activity = "GPU Activity(%)";
    const std::pair<std::vector<Property>, std::optional<double>> cases[] = {
        {{}, std::nullopt},
        {{Dictionary{{device, 0}}}, 0.0},
        {{Dictionary{{device, 25}}, "no dictionary", Dictionary{{activity, 62.5}}}, 0.625},
        {{Dictionary{{device, 10}, {activity, 90}}}, 0.1},
        {{Dictionary{{device, "busy"}, {activity, 90}}}, std::nullopt},  // there, though of no use
        {{Dictionary{{device, Property::Other()}, {activity, 90}}}, std::nullopt},
    };
    for (const auto& [statistics, usage] : cases) {
        machine.registry.clear();
        for (const Property& one : statistics) {
            machine.registry["IOAccelerator"].push_back({{"PerformanceStatistics", one}});
        }
        EXPECT_EQ(sensors.gpuUsage(), usage);
    }
    EXPECT_EQ(sensors.gpuCores(), std::nullopt);
    machine.registry["AGXAccelerator"] = {{{"gpu-core-count", 19}}, {{"gpu-core-count", 38}}};
    EXPECT_EQ(sensors.gpuCores(), 19);
    machine.registry["AGXAccelerator"].front() = {{"gpu-core-count", "19"}};
    EXPECT_EQ(sensors.gpuCores(), std::nullopt);
    machine.registryAnswers = false;
    EXPECT_EQ(sensors.gpuUsage(), std::nullopt);
}

TEST_F(MacSensorsTest, NamesTheChipWithoutItsMakerAndAsksOnce) {
    machine.controls["machdep.cpu.brand_string"] = bytesOf({"Apple M2 Apple Pro\0 and more", 28});
    EXPECT_EQ(sensors.chipName(), "M2 Pro");
    machine.controls["machdep.cpu.brand_string"] = bytesOf("Apple M3");
    EXPECT_EQ(sensors.chipName(), "M2 Pro");
    EXPECT_EQ(MacSensors(machine, shell, "/").chipName(), "M3");
    machine.controls.clear();
    EXPECT_EQ(MacSensors(machine, shell, "/").chipName(), "");
}

TEST_F(MacSensorsTest, AddsUpWhatTheDisksHaveMoved) {
    EXPECT_EQ(sensors.diskIO(), Sensors::DiskIO());
    auto& drivers = machine.registry["IOBlockStorageDriver"];
    drivers = {{{"Statistics", Dictionary{{"Bytes (Read)", 1000}, {"Bytes (Write)", std::int64_t{1} << 40}}}},
               {{"Statistics", Dictionary{{"Bytes (Read)", 24}, {"Bytes (Write)", "lots"}}}},
               {{"Statistics", 7}},
               {}};
    EXPECT_EQ(sensors.diskIO(), (Sensors::DiskIO{1024, std::uint64_t{1} << 40}));
    drivers.push_back({{"Statistics", Dictionary{{"Bytes (Read)", -1}}}});  // all 64 bits are in use
    EXPECT_EQ(sensors.diskIO(), std::nullopt);
    machine.registryAnswers = false;
    EXPECT_EQ(sensors.diskIO(), std::nullopt);
}

/// A record of 160 bytes as the kernel writes it, of which the length may lie.
Bytes interface(std::uint64_t received, std::uint64_t sent, int type = 18, int flags = 0x41,
                std::uint16_t length = 160) {
    Bytes record(160);
    put(record, 0, length);
    put(record, 3, static_cast<std::uint8_t>(type));
    put(record, 8, flags);
    put(record, 96, received);
    put(record, 104, sent);
    return record;
}

TEST_F(MacSensorsTest, CountsTheBytesOfAllInterfacesButLoopback) {
    const auto joined = [](const std::vector<Bytes>& records, std::size_t size = 10'000) {
        Bytes all;
        for (const Bytes& one : records) all.insert(all.end(), one.begin(), one.end());
        all.resize(std::min(all.size(), size));
        return all;
    };
    const std::uint64_t all = ~std::uint64_t{0};
    const Bytes one = interface(1, 2);
    const Bytes other = interface(std::uint64_t{1} << 40, 20, 18, 0);  // down, and counted too
    const std::optional<Sensors::NetworkBytes> both{{(std::uint64_t{1} << 40) + 1, 22}};
    const std::optional<Sensors::NetworkBytes> first{{1, 2}};
    const std::pair<Bytes, std::optional<Sensors::NetworkBytes>> cases[] = {
        {joined({one, other}), both},
        {joined({one, interface(5, 5, 18, 0x49), interface(5, 5, 12), other}), both},  // loopback, an address
        {joined({one, other}, 160 + 112), both},
        {joined({one, other}, 160 + 111), first},
        {joined({one}, 111), Sensors::NetworkBytes()},
        {joined({one}, 1), Sensors::NetworkBytes()},
        {joined({interface(1, 2, 18, 0, 0), other}), first},            // no length: the end
        {joined({interface(1, 2, 18, 0, 0xFFFF), other}), first},       // beyond the end
        {joined({interface(1, 2, 18, 0, 100), Bytes(1)}, 161), first},  // shorter than itself
        {joined({interface(all, 0), one}), std::nullopt},
        {{}, std::nullopt},
    };
    for (const auto& [records, expected] : cases) {
        machine.numberedControls[interfaceList] = records;
        EXPECT_EQ(sensors.networkBytes(), expected) << &expected - &cases[0].second;
    }
    machine.numberedControls.clear();
    EXPECT_EQ(sensors.networkBytes(), std::nullopt);

    const Bytes more = joined({interface(1, 2, 18, 0, 320), one, other});  // the last stands behind the end
    EXPECT_EQ(InterfaceRecords::total(std::span(more).first(319)), first);
}

TEST_F(MacSensorsTest, CallsTheConnectionAsPeopleDo) {
    using Name = std::optional<std::string>;
    const std::tuple<Property, Name, Name> cases[] = {
        {Dictionary{{"PrimaryInterface", "en0"}}, "en0", "Wi-Fi"},
        {Dictionary{{"PrimaryInterface", "en7"}}, "en0", "Ethernet"},
        {Dictionary{{"PrimaryInterface", "en0"}}, std::nullopt, "Ethernet"},
        {Dictionary{{"PrimaryInterface", "utun3"}}, "en0", "utun3"},
        {Dictionary{{"PrimaryInterface", 3}}, "en0", std::nullopt},
        {Dictionary(), "en0", std::nullopt},
        {"en0", "en0", std::nullopt},
    };
    for (const auto& [network, wifi, kind] : cases) {
        machine.store[{"Tavrel", "State:/Network/Global/IPv4"}] = network;
        machine.wifi = wifi;
        EXPECT_EQ(sensors.connectionKind(), kind);
    }
    machine.store.clear();
    EXPECT_EQ(sensors.connectionKind(), std::nullopt);
}

TEST_F(MacSensorsTest, PutsTheBatteryTogether) {
    EXPECT_EQ(sensors.battery(), std::nullopt);
    machine.adapter = Dictionary{{"Watts", 96}};
    machine.sources = {"unknown", Dictionary{{"Type", "UPS"}, {"Current Capacity", 5}}};
    EXPECT_EQ(sensors.battery(), std::nullopt);

    machine.sources.push_back(Dictionary{{"Type", "InternalBattery"},
                                         {"Is Charging", true},
                                         {"Current Capacity", 4030},
                                         {"Max Capacity", 5000},
                                         {"Time to Empty", 125},
                                         {"Power Source State", "Battery Power"}});
    machine.sources.push_back(Dictionary{{"Type", "InternalBattery"}, {"Current Capacity", 1}});
    EXPECT_EQ(sensors.battery(), (Sensors::Battery{80, true, false, 125, {}, {}, 96, {}}));

    machine.registry["AppleSmartBattery"] = {{{"CycleCount", 211},
                                              {"AppleRawMaxCapacity", 4400},
                                              {"NominalChargeCapacity", 1},
                                              {"DesignCapacity", 5103},
                                              {"BatteryData", 0},
                                              {"Temperature", 3057}}};
    EXPECT_EQ(sensors.battery(), (Sensors::Battery{80, true, false, 125, 211, 86, 96, 30.57}));
}

TEST_F(MacSensorsTest, BatteryFiguresThatAreOddOrMissing) {
    const std::int64_t huge = std::int64_t{1} << 62;
    const std::pair<Dictionary, Sensors::Battery> sources[] = {
        {{{"Current Capacity", 73}}, {.percent = 73}},
        {{{"Current Capacity", 73}, {"Max Capacity", 0}, {"Time to Empty", -1}}, {.percent = 73}},
        {{{"Max Capacity", 50}, {"Time to Empty", 0}}, {}},
        {{{"Current Capacity", huge}, {"Time to Empty", 1}}, {.minutesLeft = 1}},
        {{{"Power Source State", "AC Power"}, {"Time to Empty", 90}}, {.pluggedIn = true}},
    };
    for (auto [source, battery] : sources) {
        source["Type"] = "InternalBattery";
        machine.sources = {source};
        EXPECT_EQ(sensors.battery(), battery);
    }

    const Dictionary data{{"NominalChargeCapacity", 40}, {"DesignCapacity", 50}};
    const std::pair<Dictionary, std::optional<std::int64_t>> services[] = {
        {{{"BatteryData", data}}, 80},
        {{{"BatteryData", data}, {"NominalChargeCapacity", 30}}, 60},
        {{{"BatteryData", data}, {"AppleRawMaxCapacity", "full"}, {"DesignCapacity", 160}}, 25},
        {{{"BatteryData", data}, {"AppleRawMaxCapacity", 51}}, 100},
        {{{"BatteryData", data}, {"DesignCapacity", 0}}, std::nullopt},
        {{{"AppleRawMaxCapacity", 51}}, std::nullopt},
        {{{"DesignCapacity", 51}}, std::nullopt},
        {{{"AppleRawMaxCapacity", huge}, {"DesignCapacity", 1}}, std::nullopt},
    };
    for (const auto& [controller, health] : services) {
        machine.registry["AppleSmartBattery"] = {controller};
        EXPECT_EQ(sensors.battery()->health, health);
        EXPECT_EQ(sensors.battery()->temperature, std::nullopt);
    }
}

TEST_F(MacSensorsTest, ListsAnInputDeviceOnce) {
    machine.registry["AppleDeviceManagementHIDEventService"] = {
        {{"Product", "Trackpad"}, {"BatteryPercent", 50}}, {{"Product", "Mouse"}, {"BatteryPercent", 90}},
        {{"Product", "Trackpad"}, {"BatteryPercent", 49}}, {{"Product", "Keyboard"}},
        {{"Product", 5}, {"BatteryPercent", 1}},           {{"BatteryPercent", 2}}};
    EXPECT_THAT(sensors.accessories(),
                ElementsAre(Sensors::Accessory{"Mouse", 90}, Sensors::Accessory{"Trackpad", 49}));
    machine.registryAnswers = false;
    EXPECT_THAT(sensors.accessories(), IsEmpty());
}

TEST(MacBluetooth, GivesEachDeviceItsLowestLevel) {
    const auto report = [](const std::string& devices) {
        return R"({"SPBluetoothDataType": [{"device_connected": [)" + devices + "]}]}";
    };
    using List = std::vector<Sensors::Accessory>;
    const std::pair<std::string, List> cases[] = {
        {report(R"({"Pods": {"device_batteryLevelLeft": "80%", "device_batteryLevelRight": "45 %"}},
                   {"Mouse": {"device_batteryLevelMain": "73%", "other": "5"}, "Ball": {"batteryLevel": "9"}})"),
         {{"Pods", 45}, {"Mouse", 73}, {"Ball", 9}}},
        {report(R"({"A": {"level": "3"}, "B": 7, "C": {"batteryLevel": 7}, "D": {"batteryLevel": "none"}})"),
         {}},
        {report(R"({"A": {"batteryLevel": "7½%", "batteryLevel2": "٧", "batteryLevel3": "8٪"}})"),
         {{"A", 8}}},
        {report(R"({"A": {"batteryLevel": "99999999999999999999", "batteryLevelCase": "-60"}})"),
         {{"A", 60}}},
        {report(R"({"A": {"batteryLevel": "1"}}, 5)"), {}},
        {R"({"SPBluetoothDataType": [{"device_connected": {"A": {"batteryLevel": "1"}}}]})", {}},
        {R"({"SPBluetoothDataType": [[]]})", {}},
        {R"({"SPBluetoothDataType": []})", {}},
        {R"([{"A": {"batteryLevel": "1"}}])", {}},
        {report(R"({"A": {"batteryLevel": "1"}})").substr(1), {}},
        {std::string(100'000, '['), {}},
        {"\xFF", {}},
        {"", {}},
    };
    const SimulatedMachine machine;
    for (const auto& [output, devices] : cases) {
        ScriptedShell shell(CommandResult{0, output});
        EXPECT_EQ(MacSensors(machine, shell, "/").bluetoothBatteries(), devices) << output.substr(0, 200);
        EXPECT_THAT(shell.calls, ElementsAre(ScriptedShell::Call{
                                     "/usr/sbin/system_profiler", {"SPBluetoothDataType", "-json"}, 20s}));
    }
    ScriptedShell failing(CommandResult{1, cases[0].first});
    EXPECT_THAT(MacSensors(machine, failing, "/").bluetoothBatteries(), IsEmpty());
}

TEST_F(MacSensorsTest, PassesOnSpaceLoadAndHeat) {
    machine.volumes["/Users/ana"] = {500, 200};
    EXPECT_EQ(sensors.diskSpace(), (Sensors::DiskSpace{500, 200}));
    EXPECT_EQ(sensors.loadAverage(), std::nullopt);
    machine.averages = {1.5, 2.5};
    EXPECT_EQ(sensors.loadAverage(), 1.5);
    using enum Sensors::ThermalState;
    machine.thermal = 2;
    EXPECT_EQ(sensors.thermalState(), serious);
    machine.thermal = 9;
    EXPECT_EQ(sensors.thermalState(), critical);
}

}  // namespace
}  // namespace tavrel
