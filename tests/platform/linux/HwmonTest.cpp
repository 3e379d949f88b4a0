#include "FixtureTree.h"
#include "OpenWatch.h"
#include "platform/linux/hwmon/HwmonFans.h"
#include "platform/linux/hwmon/HwmonTemperatures.h"
#include "support/Sandbox.h"

#include <string>
#include <tuple>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSubsetOf;
using ::testing::IsSupersetOf;
using testing::OpenWatch;
using testing::plant;
using testing::Sandbox;

/// Plants a chip as /sys has it: its device, and a link to that under a number that says nothing. Gives the
/// chip's folder, relative to the root.
std::string chip(const Sandbox& sys, const std::string& device, const std::string& entry,
                 const std::string& name, const std::string& values) {
    std::string folder = "devices/" + device + "/hwmon/" + entry + "/";
    plant(sys, folder + " name=" + name + " " + values + "\n" + folder + "device -> ../..\nclass/hwmon/" +
                   entry + " -> ../../" + folder);
    return folder;
}

TEST(HwmonTemperatures, KnowsChipsByNameAndSensorsByLabel) {
    const std::string package = "temp1_label=Package~id~0 temp1_input=61000 ";
    const std::string cores = "temp2_label=Core~0 temp2_input=40000 temp10_label=Core~8 temp10_input=50000";
    const std::string control = "temp1_label=Tctl temp1_input=71000 ";
    const std::string die = "temp2_label=Tdie temp2_input=61500 ";
    const std::string complex = "temp3_label=Tccd1 temp3_input=50000";
    const std::string single = "temp1_input=48312";
    const std::string odd =
        "temp1_input=5000 temp2_input=5001 temp3_input=129999 temp4_input=130000 temp5_input= "
        "temp6_input=50000~x temp7_input=-1 temp8_input=9999999999999999999";
    const std::tuple<std::string, std::string, Temperatures> cases[] = {
        {"coretemp", package + cores, {.cpu = 61.0}},
        {"coretemp", cores, {.cpu = 45.0}},
        {"coretemp", "", {}},
        {"k10temp", control + die + complex, {.cpu = 61.5}},
        {"zenpower", control + complex, {.cpu = 71.0}},
        {"k10temp", single, {.cpu = 48.312}},
        {"cpu0_thermal", single, {.cpu = 48.312}},
        {"soc_thermal", odd, {.cpu = 67.5}},
        {"acpitz", single, {.cpu = 48.312}},
        {"amdgpu", "temp1_label=edge temp1_input=55000 temp2_input=90000", {.gpu = 55}},
        {"nouveau", single, {.gpu = 48.312}},
        {"drivetemp", single, {}},
        {"nvme", single, {}},
    };
    for (const auto& [name, values, expected] : cases) {
        const Sandbox sys;
        chip(sys, "some", "hwmon3", name, values);
        EXPECT_EQ(HwmonTemperatures(sys.root()).read(), expected) << name;
    }
    EXPECT_EQ(HwmonTemperatures(Sandbox().root()).read(), Temperatures());
}

TEST(HwmonTemperatures, PrefersTheProcessorsOwnSensors) {
    const Sandbox sys;
    const auto cpu = [&sys] { return HwmonTemperatures(sys.root()).read().cpu; };
    chip(sys, "board", "hwmon0", "acpitz", "temp1_input=20000");
    EXPECT_EQ(cpu(), 20.0);
    const std::pair<const char*, double> zones[] = {
        {"0/ type=acpitz temp=20000\n1/ type=soc-thermal temp=30000", 30.0},
        {"3/ type=bigcore0-thermal temp=36000", 36.0},
        {"4/ type=cpu0-thermal temp=37000", 37.0},
        {"2/ type=x86_pkg_temp temp=40000", 40.0},
    };
    for (const auto& [zone, expected] : zones) {
        plant(sys, zone, "class/thermal/thermal_zone");
        EXPECT_EQ(cpu(), expected) << zone;
    }
    chip(sys, "processor", "hwmon1", "k10temp", "temp1_label=Tctl temp1_input=50000");
    chip(sys, "other", "hwmon2", "k10temp", "temp1_label=Tctl temp1_input=60000");
    EXPECT_EQ(cpu(), 55.0);
}

TEST(Hwmon, ASleepingDeviceIsLeftAsleep) {
    const Sandbox sys;
    const std::string folder =
        chip(sys, "card", "hwmon2", "amdgpu", "temp1_label=edge temp1_input=55000 fan1_input=1000");
    const auto state = [&sys](const std::string& value) {
        plant(sys, "devices/card/power/ runtime_status=" + value);
    };
    state("suspended");
    const OpenWatch watch(sys.path(folder));

    HwmonTemperatures temperatures(sys.root());
    HwmonFans fans(sys.root());
    EXPECT_EQ(temperatures.read(), Temperatures());
    EXPECT_THAT(fans.read(), IsEmpty());
    EXPECT_THAT(watch.names(), IsSubsetOf({"name", "device"}));

    state("active");
    EXPECT_EQ(temperatures.read().gpu, 55.0);
    EXPECT_THAT(fans.read(), ElementsAre(Fan{1000, 0}));
    EXPECT_THAT(watch.names(), IsSupersetOf({"temp1_label", "temp1_input", "fan1_input"}));

    state("suspending");
    EXPECT_EQ(temperatures.read(), Temperatures());
}

TEST(HwmonTemperatures, LooksAgainForALostSensorButRarely) {
    const Sandbox sys;
    chip(sys, "processor", "hwmon1", "k10temp", "temp1_input=50000");
    HwmonTemperatures reader(sys.root());

    // The driver was loaded anew: its files have other names, and the open ones answer no longer.
    const auto move = [&sys](const std::string& from, const std::string& to) {
        sys.text("devices/processor/hwmon/" + from + "/temp1_input", "\n");
        fs::remove_all(sys.path("class/hwmon/" + from));
        chip(sys, "processor", to, "k10temp", "temp1_input=60000");
    };
    move("hwmon1", "hwmon4");
    EXPECT_EQ(reader.read().cpu, std::nullopt);
    EXPECT_EQ(reader.read().cpu, 60.0);

    move("hwmon4", "hwmon5");
    int readings = 1;
    while (!reader.read().cpu && readings < 100) ++readings;
    EXPECT_GT(readings, 20);
    EXPECT_LT(readings, 40);
}

TEST(HwmonFans, TurningOnesOfTheBoardComeFirst) {
    const Sandbox sys;
    const std::string card = chip(sys, "pci0000:00/a", "hwmon1", "amdgpu", "fan1_input=800 fan2_input=0");
    chip(sys, "platform/z", "hwmon0", "nct6775",
         "fan1_input=0 fan10_input=900 fan2_input=1200 fan2_max=3000 fan3_input=");
    HwmonFans fans(sys.root());
    EXPECT_THAT(fans.read(), ElementsAre(Fan{1200, 3000}, Fan{900, 0}, Fan{800, 0}, Fan{0, 0}, Fan{0, 0}));
    plant(sys, card + " fan1_input=0 fan2_input=700");  // they keep their places
    EXPECT_THAT(fans.read(), ElementsAre(Fan{1200, 3000}, Fan{900, 0}, Fan{0, 0}, Fan{0, 0}, Fan{700, 0}));
    fs::remove_all(sys.path("devices/platform/z"));
    EXPECT_THAT(fans.read(), ElementsAre(Fan{0, 0}, Fan{700, 0}));
    EXPECT_THAT(HwmonFans(sys.root() / "missing").read(), IsEmpty());
}

TEST(HwmonFans, AreControllableWhenEachHasAll) {
    const std::pair<std::string, bool> steps[] = {
        {"pwm1 = 9", false},       {"fan1_input = ", false},  {"pwm1_enable = 2", true},
        {"fan1_min = 300", true},  {"fan1_max = 300", false}, {"fan1_max = 301", true},
        {"fan2_input = 1", false}, {"pwm2 = 9", false},       {"pwm2_enable = 2", true}};
    const Sandbox sys;
    const std::string folder = chip(sys, "board", "hwmon0", "it87", "");
    for (const auto& [file, controllable] : steps) {
        plant(sys, file, folder);
        EXPECT_EQ(HwmonFans(sys.root()).isControllable(), controllable) << file;
    }
}

}  // namespace
}  // namespace tavrel
