#include "FixtureTree.h"
#include "OpenWatch.h"
#include "platform/linux/power/PowerFigures.h"
#include "platform/linux/power/PowerSupply.h"
#include "support/Sandbox.h"

#include <string>
#include <tuple>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using Accessory = Sensors::Accessory;
using Battery = Sensors::Battery;
using ::testing::ElementsAre;
using testing::plant;
using testing::Sandbox;

constexpr const char* supplies = "sys/class/power_supply/";

std::optional<Battery> battery(const std::string& table, const std::string& more = "") {
    const Sandbox sandbox;
    plant(sandbox, table, supplies);
    plant(sandbox, more, supplies);
    return PowerFigures::battery(PowerSupply::readAll(sandbox.path("sys"), PowerSupply::Of::machine));
}

TEST(PowerFigures, ReadsALaptopOnItsBattery) {
    const auto found = battery(
        "AC/ type=Mains online=0\n"
        "BAT0/ type=Battery present=1 status=Discharging capacity=99 energy_now=30000000 "
        "energy_full=40000000 "
        "energy_full_design=50000000 power_now=10000000 cycle_count=321 temp=314");
    EXPECT_EQ(found,
              (Battery{.percent = 75, .minutesLeft = 180, .cycles = 321, .health = 80, .temperature = 31.4}));
}

TEST(PowerFigures, AddsBatteriesUp) {
    const std::string energy = "energy_now=10000000 energy_full=20000000";
    const std::tuple<std::string, std::string, std::int64_t, std::optional<std::int64_t>> cases[] = {
        // The idle one drains nothing, and its hours count.
        {energy + " power_now=-15000000", "energy_now=20000000 energy_full=60000000 power_now=0", 37, 120},
        // 2 Ah of 3 at 10 V are 20 Wh of 30.
        {energy, "charge_now=2000000 charge_full=3000000 voltage_min_design=10000000 current_now=-1000000",
         60, 180},
        // Of different voltages.
        {"charge_now=1000000 charge_full=1000000 voltage_min_design=30000000",
         "charge_now=0 charge_full=1000000 voltage_now=10000000", 75, std::nullopt},
        // The same family without a voltage.
        {"charge_now=1000000 charge_full=1000000", "charge_now=0 charge_full=3000000 current_now=500000", 25,
         120},
        // The families without a voltage, and words: what each says of itself.
        {energy + " power_now=1000000", "charge_now=900000 charge_full=1000000", 70, std::nullopt},
        {energy, "capacity_level=Full", 75, std::nullopt},
        // An empty bay.
        {energy, "present=0 capacity=0", 50, std::nullopt},
        {energy, "energy_now=1 energy_full=0", 50, std::nullopt},
        // Nothing is lost by rounding.
        {"capacity=29", "present=0", 29, std::nullopt},
        {"energy_now=57 energy_full=100", "present=0", 57, std::nullopt},
        {"charge_now=29 charge_full=50 voltage_now=11430000",
         "charge_now=29 charge_full=50 voltage_now=11430000", 58, std::nullopt},
    };
    for (const auto& [first, second, percent, minutes] : cases) {
        const auto found = battery("BAT0/ type=Battery status=Discharging " + first,
                                   "BAT1/ type=Battery scope=System " + second);
        ASSERT_TRUE(found) << second;
        EXPECT_EQ(found->percent, percent) << first << " and " << second;
        EXPECT_EQ(found->minutesLeft, minutes) << first << " and " << second;
    }
}

TEST(PowerFigures, KnowsThePlug) {
    struct Case {
        std::string mains, status;
        bool charging, pluggedIn;
        std::optional<std::int64_t> watts;
    };
    const Case cases[] = {
        {"type=Mains online=1", "Charging", true, true, std::nullopt},
        {"type=Mains online=1", "Discharging", false, true, std::nullopt},
        {"type=Mains online=0", "Full", false, false, std::nullopt},
        {"type=Mains online=0", "Charging", true, true, std::nullopt},
        {"type=USB online=1 voltage_max=20000000 current_max=3250000", "Full", false, true, 65},
        {"type=USB online=0 voltage_max=20000000 current_max=3250000", "Full", false, false, std::nullopt},
        {"type=USB online=1 voltage_max=20000000 current_max=9223372036854775807", "Full", false, true,
         std::nullopt},
        {"type=USB scope=Device online=1", "Discharging", false, false, std::nullopt},
        {"type=UPS online=1", "Discharging", false, false, std::nullopt},
        {"type=UPS online=1", "Full", false, true, std::nullopt},  // no plug tells otherwise
        {"type=Mains online=0", "Not~charging", false, true, std::nullopt},
        {"type=Battery capacity=50 status=Not~charging", "Discharging", false, false, std::nullopt},
    };
    for (const auto& [mains, status, charging, pluggedIn, watts] : cases) {
        const auto found = battery("plug/ " + mains, "BAT0/ type=Battery capacity=50 status=" + status);
        ASSERT_TRUE(found);
        EXPECT_EQ(found->charging, charging) << mains << status;
        EXPECT_EQ(found->pluggedIn, pluggedIn) << mains << status;
        EXPECT_EQ(found->adapterWatts, watts) << mains << status;
    }
}

TEST(PowerFigures, BelievesNoNonsense) {
    EXPECT_EQ(battery(""), std::nullopt);
    EXPECT_EQ(battery("BAT0/ type=Battery status=Unknown capacity=lots"), std::nullopt);
    // More than full and better than new, a drain of next to nothing, no count of cycles, an impossible heat.
    EXPECT_EQ(battery("BAT0/ type=Battery energy_now=60 energy_full=50 energy_full_design=40 power_now=-1 "
                      "cycle_count=0 temp=9223372036854775807 voltage_now=99999999999999999999\n"
                      "BAT1/ type=Battery energy_now=9223372036854775807 energy_full=9223372036854775807"),
              (Battery{.percent = 100, .health = 100}));
    EXPECT_EQ(battery("BAT0/ type=Battery energy_now=-5 energy_full=50 capacity=-7"), Battery());
}

TEST(PowerFigures, DevicesBesideTheMachineAreAccessories) {
    const Sandbox sandbox;
    plant(sandbox,
          "BAT0/ type=Battery capacity=50\n"
          "hidpp_battery_0/ type=Battery scope=Device capacity_level=Low model_name=Mouse\n"
          "hidpp_battery_1/ type=Battery scope=Device capacity=300 model_name=Keyboard\xFF\n"
          "hidpp_battery_2/ type=Battery scope=Device capacity_level=Unknown model_name=Pad\n"
          "hidpp_battery_3/ type=Battery scope=Device capacity=20 model_name=Mouse\n"
          "wacom_battery_0/ type=Battery scope=Device capacity=42",
          supplies);
    const auto read = [&](PowerSupply::Of owner) { return PowerSupply::readAll(sandbox.path("sys"), owner); };
    EXPECT_THAT(PowerFigures::accessories(read(PowerSupply::Of::devices)),
                ElementsAre(Accessory{"Keyboard\uFFFD", 100}, Accessory{"Mouse", 20},
                            Accessory{"wacom_battery_0", 42}));
    // A sleeping one is not asked for the machine's own figures.
    const testing::OpenWatch mouse(sandbox.path("sys/class/power_supply/hidpp_battery_0"));
    EXPECT_EQ(PowerFigures::battery(read(PowerSupply::Of::machine)), Battery{.percent = 50});
    EXPECT_THAT(mouse.names(), ElementsAre("scope", "type"));
}

}  // namespace
}  // namespace tavrel
