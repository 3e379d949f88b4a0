#include "FixtureTree.h"
#include "PlayedService.h"
#include "core/FileHandle.h"
#include "core/Files.h"
#include "platform/linux/figures/LinuxSensors.h"
#include "platform/linux/power/SystemBus.h"
#include "support/PrivateBus.h"
#include "support/Sandbox.h"

#include <chrono>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using namespace std::chrono_literals;
using Accessory = Sensors::Accessory;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::PlayedService;
using testing::PrivateBus;
using testing::Sandbox;

constexpr const char* upower = "org.freedesktop.UPower";
const std::string devices = "/org/freedesktop/UPower/devices/";
const BusObject manager = {upower, "/org/freedesktop/UPower", upower};

BusProperties device(std::int64_t kind, const std::string& model, double percent) {
    return {{"Type", kind}, {"Model", model}, {"Percentage", percent}, {"IsPresent", true}};
}

PlayedService::Objects playedDevices() {
    BusProperties absent = device(6, "Old keyboard", 3);
    absent["IsPresent"] = false;
    return {
        {devices + "DisplayDevice", {{"Type", std::int64_t{2}}, {"TimeToEmpty", std::int64_t{7259}}}},
        {devices + "battery_BAT0", device(2, "Cells", 50)},
        {devices + "mouse", device(5, "Mouse", 41.6)},
        {devices + "keyboard", device(6, "Keyboard", 900)},
        {devices + "absent", absent},
        {devices + "headset", device(17, "Headset", 73)},
        {devices + "headset_again", device(17, "Headset", 70)},
        {devices + "phone", device(8, "Phone", 12)},
        {devices + "watch", device(26, "Watch", 60)},
        {devices + "line_power", device(1, "Plug", 100)},
        {devices + "ups", device(3, "UPS", 90)},
        {devices + "screen", device(4, "Screen", 80)},
        {devices + "nameless", device(5, "", 12)},
        {devices + "odd",
         {{"Type", std::string("mouse")}, {"Model", true}, {"Percentage", std::string("9")}}},
    };
}

class SystemBusTest : public ::testing::Test {
  protected:
    [[nodiscard]] LinuxSensors sensors() {
        return {{.proc = sandbox.path("proc"),
                 .sys = sandbox.path("sys"),
                 .home = sandbox.root(),
                 .bus = bus.address()},
                nullptr,
                [this] { return now; }};
    }
    void battery(const std::string& online) const {
        testing::plant(sandbox, R"(
            sys/class/power_supply/BAT0/ type=Battery energy_now=30 energy_full=40 power_now=10
            sys/class/power_supply/AC/ type=Mains
            sys/class/power_supply/hidpp_battery_0/ type=Battery scope=Device model_name=Kernel's~mouse capacity=40
        )");
        sandbox.text("sys/class/power_supply/AC/online", online);
    }

    Sandbox sandbox;
    PrivateBus bus{upower};
    SystemBus::Time now{1h};
};

TEST_F(SystemBusTest, UPowerKnowsBetter) {
    PlayedService::Objects objects = playedDevices();
    std::vector<std::string> paths = {devices + "vanished"};
    for (const auto& [path, properties] : objects) paths.push_back(path);
    const PlayedService service(bus.address(), upower, objects, paths);
    LinuxSensors machine = sensors();
    EXPECT_THAT(machine.accessories(), ElementsAre(Accessory{"Keyboard", 100}, Accessory{"Mouse", 42}));
    EXPECT_THAT(machine.bluetoothBatteries(),
                ElementsAre(Accessory{"Headset", 70}, Accessory{"Phone", 12}, Accessory{"Watch", 60}));
    battery("0");
    EXPECT_EQ(machine.battery().value_or(Sensors::Battery()).minutesLeft, 120);
    battery("1");
    EXPECT_EQ(machine.battery().value_or(Sensors::Battery{.minutesLeft = 1}).minutesLeft, std::nullopt);
}

TEST_F(SystemBusTest, WithoutUPowerTheKernelIsAskedAndNothingIsStarted) {
    battery("0");
    LinuxSensors machine = sensors();
    EXPECT_THAT(machine.accessories(), ElementsAre(Accessory{"Kernel's mouse", 40}));
    EXPECT_THAT(machine.bluetoothBatteries(), IsEmpty());
    EXPECT_EQ(machine.battery().value_or(Sensors::Battery()).minutesLeft, 180);
    EXPECT_FALSE(Files::exists(bus.started()));
    // It is asked again at once when it comes up.
    const PlayedService service(bus.address(), upower, playedDevices(), {devices + "mouse"});
    EXPECT_THAT(machine.accessories(), ElementsAre(Accessory{"Mouse", 42}));
}

TEST_F(SystemBusTest, AHangingServiceIsNotFeltTwice) {
    PlayedService service(bus.address(), upower, {{manager.path, {{"Version", std::int64_t{7}}}}});
    SystemBus asked(bus.address(), [this] { return now; });
    EXPECT_EQ(asked.properties(manager), (BusProperties{{"Version", std::int64_t{7}}}));
    service.hang();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(asked.properties(manager), std::nullopt);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
    EXPECT_EQ(service.questions(), 2);
    now += 59s;
    EXPECT_EQ(asked.properties(manager), std::nullopt);
    EXPECT_EQ(service.questions(), 2);
    now += 1s;
    EXPECT_EQ(asked.properties(manager), std::nullopt);
    EXPECT_EQ(service.questions(), 3);
}

TEST_F(SystemBusTest, ABusThatGoesIsNoFailure) {
    SystemBus asked(bus.address());
    EXPECT_EQ(asked.properties(manager), std::nullopt);
    bus.stop();
    EXPECT_EQ(asked.properties(manager), std::nullopt);
    EXPECT_EQ(SystemBus("nonsense").objects(manager, "List"), std::nullopt);
    EXPECT_EQ(SystemBus("").objects(manager, "List"), std::nullopt);
}

TEST_F(SystemBusTest, ABusThatNeverGreetsIsGivenUp) {
    const FileHandle listener(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const std::string path = sandbox.path("mute");
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(listener.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(listener.get(), 4), 0);
    SystemBus asked("unix:path=" + path, [this] { return now; });
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(asked.properties(manager), std::nullopt);
    EXPECT_EQ(asked.properties(manager), std::nullopt);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
}

}  // namespace
}  // namespace tavrel
