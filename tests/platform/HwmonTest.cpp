#include "OpenWatch.h"
#include "platform/linux/HwmonFans.h"
#include "platform/linux/HwmonTemperatures.h"
#include "support/Sandbox.h"

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::IsSubsetOf;
using ::testing::IsSupersetOf;
using testing::OpenWatch;
using testing::Sandbox;
using Path = std::filesystem::path;
using Values = std::vector<std::pair<std::string, std::string>>;

/// A tree like /sys: devices, and links to them under numbers that say nothing.
class SysTree {
  public:
    [[nodiscard]] const Path& root() const { return sandbox_.root(); }
    void set(const Path& file, const std::string& value) const { sandbox_.text(file, value + "\n"); }

    /// Gives the chip's folder, relative to the root.
    Path chip(const std::string& device, int number, const std::string& name, const Values& values) const {
        const std::string entry = "hwmon" + std::to_string(number);
        Path folder = Path("devices") / device / "hwmon" / entry;
        for (const auto& [file, value] : values) set(folder / file, value);
        set(folder / "name", name);
        sandbox_.link(folder / "device", "../..");
        sandbox_.link(Path("class/hwmon") / entry, Path("../..") / folder);
        return folder;
    }
    void zone(int number, const std::string& type, const std::string& temperature) const {
        const Path folder = "class/thermal/thermal_zone" + std::to_string(number);
        set(folder / "type", type);
        set(folder / "temp", temperature);
    }
    void remove(const Path& file) const { std::filesystem::remove_all(root() / file); }

    [[nodiscard]] Temperatures temperatures() const { return HwmonTemperatures(root()).read(); }

  private:
    Sandbox sandbox_;
};

TEST(HwmonTemperatures, KnowsChipsByNameAndSensorsByLabel) {
    struct Case {
        std::string chip;
        Values values;
        Temperatures expected;
    };
    const Values cores = {{"temp1_label", "Package id 0"}, {"temp1_input", "61000"},
                          {"temp2_label", "Core 0"},       {"temp2_input", "40000"},
                          {"temp10_label", "Core 8"},      {"temp10_input", "50000"}};
    const Values amd = {{"temp1_label", "Tctl"},  {"temp1_input", "71000"}, {"temp2_label", "Tdie"},
                        {"temp2_input", "61500"}, {"temp3_label", "Tccd1"}, {"temp3_input", "50000"}};
    const Values single = {{"temp1_input", "48312"}};
    const Values odd = {{"temp1_input", "5000"},   {"temp2_input", "5001"},
                        {"temp3_input", "129999"}, {"temp4_input", "130000"},
                        {"temp5_input", ""},       {"temp6_input", "50000 x"},
                        {"temp7_input", "-1"},     {"temp8_input", "9999999999999999999"}};
    const Case cases[] = {
        {"coretemp", cores, {.cpu = 61.0}},
        {"coretemp", {cores.begin() + 2, cores.end()}, {.cpu = 45.0}},
        {"coretemp", {}, {}},
        {"k10temp", amd, {.cpu = 61.5}},
        {"zenpower", {amd[0], amd[1], amd[4], amd[5]}, {.cpu = 71.0}},
        {"k10temp", single, {.cpu = 48.312}},
        {"cpu0_thermal", single, {.cpu = 48.312}},
        {"soc_thermal", odd, {.cpu = 67.5}},
        {"acpitz", single, {.cpu = 48.312}},
        {"amdgpu",
         {{"temp1_label", "edge"}, {"temp1_input", "55000"}, {"temp2_input", "90000"}},
         {.gpu = 55}},
        {"nouveau", single, {.gpu = 48.312}},
        {"drivetemp", single, {}},
        {"nvme", single, {}},
    };
    for (const auto& [chip, values, expected] : cases) {
        const SysTree sys;
        sys.chip("some", 3, chip, values);
        EXPECT_EQ(sys.temperatures(), expected) << chip;
    }
    EXPECT_EQ(SysTree().temperatures(), Temperatures());
}

TEST(HwmonTemperatures, PrefersTheProcessorsOwnSensors) {
    const SysTree sys;
    sys.chip("board", 0, "acpitz", {{"temp1_input", "20000"}});
    EXPECT_EQ(sys.temperatures().cpu, 20.0);
    sys.zone(0, "acpitz", "20000");
    sys.zone(1, "soc-thermal", "30000");
    EXPECT_EQ(sys.temperatures().cpu, 30.0);
    sys.zone(3, "bigcore0-thermal", "36000");
    EXPECT_EQ(sys.temperatures().cpu, 36.0);
    sys.zone(4, "cpu0-thermal", "37000");
    EXPECT_EQ(sys.temperatures().cpu, 37.0);
    sys.zone(2, "x86_pkg_temp", "40000");
    EXPECT_EQ(sys.temperatures().cpu, 40.0);
    sys.chip("processor", 1, "k10temp", {{"temp1_label", "Tctl"}, {"temp1_input", "50000"}});
    sys.chip("other processor", 2, "k10temp", {{"temp1_label", "Tctl"}, {"temp1_input", "60000"}});
    EXPECT_EQ(sys.temperatures().cpu, 55.0);
}

TEST(Hwmon, ASleepingDeviceIsLeftAsleep) {
    const SysTree sys;
    const Path folder = sys.chip("card", 2, "amdgpu", {{"temp1_label", "edge"}, {"temp1_input", "55000"}});
    sys.set(folder / "fan1_input", "1000");
    const auto state = [&sys](const char* value) { sys.set("devices/card/power/runtime_status", value); };
    state("suspended");
    const OpenWatch watch(sys.root() / folder);

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
    const SysTree sys;
    const Path old = sys.chip("processor", 1, "k10temp", {{"temp1_input", "50000"}});
    HwmonTemperatures reader(sys.root());

    // The driver was loaded anew: its files have other names, and the open ones answer no longer.
    const auto moveTo = [&sys](const Path& from, int number) {
        sys.set(from / "temp1_input", "");
        sys.remove(Path("class/hwmon") / from.filename());
        return sys.chip("processor", number, "k10temp", {{"temp1_input", "60000"}});
    };
    const Path next = moveTo(old, 4);
    EXPECT_EQ(reader.read().cpu, std::nullopt);
    EXPECT_EQ(reader.read().cpu, 60.0);

    moveTo(next, 5);
    int readings = 1;
    while (!reader.read().cpu && readings < 100) ++readings;
    EXPECT_GT(readings, 20);
    EXPECT_LT(readings, 40);
}

TEST(HwmonFans, TurningOnesOfTheBoardComeFirst) {
    const SysTree sys;
    const Path card = sys.chip("pci0000:00/a", 1, "amdgpu", {{"fan1_input", "800"}, {"fan2_input", "0"}});
    sys.chip("platform/z", 0, "nct6775",
             {{"fan1_input", "0"},
              {"fan10_input", "900"},
              {"fan2_input", "1200"},
              {"fan2_max", "3000"},
              {"fan3_input", ""}});
    HwmonFans fans(sys.root());
    EXPECT_THAT(fans.read(), ElementsAre(Fan{1200, 3000}, Fan{900, 0}, Fan{800, 0}, Fan{0, 0}, Fan{0, 0}));
    sys.set(card / "fan1_input", "0");  // they keep their places
    sys.set(card / "fan2_input", "700");
    EXPECT_THAT(fans.read(), ElementsAre(Fan{1200, 3000}, Fan{900, 0}, Fan{0, 0}, Fan{0, 0}, Fan{700, 0}));
    sys.remove("devices/platform/z");
    EXPECT_THAT(fans.read(), ElementsAre(Fan{0, 0}, Fan{700, 0}));
    EXPECT_THAT(HwmonFans(sys.root() / "missing").read(), IsEmpty());
}

TEST(HwmonFans, AreControllableWhenEachHasAll) {
    struct Step {
        std::string file;
        std::string value;
        bool controllable;
    };
    const Step steps[] = {
        {"pwm1", "9", false},       {"fan1_input", "", false},  {"pwm1_enable", "2", true},
        {"fan1_min", "300", true},  {"fan1_max", "300", false}, {"fan1_max", "301", true},
        {"fan2_input", "1", false}, {"pwm2", "9", false},       {"pwm2_enable", "2", true},
    };
    const SysTree sys;
    const Path folder = sys.chip("board", 0, "it87", {});
    for (const auto& [file, value, controllable] : steps) {
        sys.set(folder / file, value);
        EXPECT_EQ(HwmonFans(sys.root()).isControllable(), controllable) << file << " " << value;
    }
}

}  // namespace
}  // namespace tavrel
