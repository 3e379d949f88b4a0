#include "platform/macos/HidTemperatureReader.h"
#include "platform/simulated/SimulatedTemperatureSensors.h"

#include <cmath>

#include <gtest/gtest.h>

namespace tavrel {
namespace {

TEST(HidTemperatureReader, GivesTheMeanOfEachKindOfDie) {
    const double justAbove = std::nextafter(5.0, 6.0);
    const double justBelow = std::nextafter(130.0, 0.0);
    using Values = std::vector<std::pair<std::string, std::optional<double>>>;
    const std::pair<Values, Temperatures> cases[] = {
        {{}, {}},
        {{{"PMU tdie1", 40},
          {"pACC MTR Temp", 50},
          {"eACC MTR Temp", 60},
          {"CPU die", 70},
          {"SOC MTR Temp", 80}},
         {60.0, {}}},
        {{{"GPU MTR Temp", 50}, {"CPU GPU tdie", 61}, {"tdie", 30}}, {30.0, 55.5}},
        {{{"gas gauge battery", 30}, {"NAND CH0 temp", 40}, {"cpu", 50}, {"TDIE", 60}, {"", 70}}, {}},
        {{{"tdie0", 0}, {"tdie1", 5}, {"tdie2", 130}, {"tdie3", -20}, {"tdie4", std::nullopt}, {"GPU", NAN}},
         {}},
        {{{"tdie0", 5}, {"tdie1", 40.5}, {"tdie2", std::nullopt}}, {40.5, {}}},
        {{{"CPU", justAbove}, {"GPU", justBelow}}, {justAbove, justBelow}}};
    for (const auto& [given, expected] : cases) {
        SimulatedTemperatureSensors sensors(given);
        EXPECT_EQ(HidTemperatureReader(sensors).read(), expected);
    }
}

}  // namespace
}  // namespace tavrel
