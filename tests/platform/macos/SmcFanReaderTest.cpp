#include "platform/macos/SmcFanReader.h"
#include "platform/macos/SmcValue.h"
#include "platform/simulated/SimulatedFanController.h"

#include <algorithm>
#include <array>
#include <tuple>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Answer = SimulatedFanController::Answer;
using ModeKey = SimulatedFanController::ModeKey;

/// Asks for the value of "F0Ac", four bytes of it, as a little-endian machine lays it out.
SmcRecord::Bytes question() {
    SmcRecord::Bytes bytes{};
    for (const auto& [at, byte] :
         {std::pair<std::size_t, char>(0, 'c'), {1, 'A'}, {2, '0'}, {3, 'F'}, {28, '\4'}, {42, '\5'}})
        bytes.at(at) = std::byte(byte);
    return bytes;
}

TEST(SmcRecord, StandsAsTheControllerHasIt) {
    SmcRecord record;
    record.key = SmcRecord::packed("F0Ac");
    record.keyInfo.dataSize = 4;
    record.data8 = SmcRecord::readValue;
    EXPECT_EQ(record.encoded(), question());

    SmcRecord::Bytes answer{};
    static_assert(answer.size() == 80);
    for (std::size_t at = 0; at < answer.size(); ++at) answer[at] = static_cast<std::byte>(at);
    const SmcRecord decoded = SmcRecord::decoded(answer);
    EXPECT_THAT((std::array{decoded.key, decoded.keyInfo.dataSize, decoded.keyInfo.dataType}),
                ElementsAre(0x03020100u, 0x1F1E1D1Cu, 0x23222120u));
    EXPECT_EQ(decoded.result, 40);
    EXPECT_EQ(decoded.data8, 42);
    EXPECT_TRUE(std::equal(decoded.bytes.begin(), decoded.bytes.end(), answer.begin() + 48));
}

TEST(SmcValue, ReadsTheTypesItKnows) {
    const std::array<std::byte, 32> bytes{std::byte{0x1F}, std::byte{0x87}, std::byte{0xA4}, std::byte{0x45}};
    const std::pair<const char*, std::optional<double>> cases[] = {
        {"flt ", 5264.89013671875},  // 0x45A4871F, as a little-endian machine has it
        {"fpe2", 2017},              // 0x1F87, a quarter each, the rest of three quarters dropped
        {"ui8 ", 31},
        {"ui16", 8071},
        {"ui32", std::nullopt},
        {"FLT ", std::nullopt},
        {"\xFF\xFE\xFD\xFC", std::nullopt}};
    for (const auto& [type, value] : cases)
        EXPECT_EQ(smcValue(SmcRecord::packed(type), bytes), value) << type;
}

TEST(SmcFanReader, AsksForAKeyInTwoRoundTrips) {
    SimulatedFanController controller;
    controller.addFan(0, 1833, 1200, 5500);
    SmcFanReader reader(controller);
    EXPECT_EQ(reader.value("F0Ac"), 1833);
    ASSERT_EQ(controller.inputs.size(), 2u);
    EXPECT_EQ(controller.inputs.back(), question());

    auto& key = controller.keys["F0Ac"];
    for (Answer* step : {&key.reading, &key.information}) {
        for (const Answer failure : {Answer::refusal, Answer::failedCall}) {
            *step = failure;
            EXPECT_EQ(reader.value("F0Ac"), std::nullopt);
        }
    }
    EXPECT_EQ(controller.inputs.size(), 2u + 2 * 2 + 2);  // a key without information is not read
}

TEST(SmcFanReader, ClosesWhatItOpened) {
    SimulatedFanController controller;
    controller.addFan(0, 1833, 1200, 5500);
    {
        const SmcFanReader reader(controller);
        EXPECT_EQ(controller.opened.size(), 1u);
    }
    EXPECT_THAT(controller.opened, IsEmpty());

    controller.nextConnection = 0;
    controller.opened = {0};  // nobody may close this, nor talk over it
    {
        SmcFanReader reader(controller);
        EXPECT_THAT(reader.read(), IsEmpty());
        EXPECT_FALSE(reader.isControllable());
    }
    EXPECT_THAT(controller.opened, ElementsAre(0));
    EXPECT_THAT(controller.inputs, IsEmpty());
}

TEST(SmcFanReader, BelievesTheNumberOfFansWithinReason) {
    const auto byte = SimulatedFanController::byteKey;
    const auto real = SimulatedFanController::floatKey;
    // The count that the controller reports, the fans that answer, and the fans that are shown.
    const std::tuple<std::optional<SimulatedFanController::Key>, int, std::int64_t> cases[] = {
        {byte(2), 0, 2},    {byte(7), 1, 7},  {byte(8), 1, 1},       {byte(0), 3, 3},
        {real(2.9F), 1, 2}, {real(-1), 1, 1}, {std::nullopt, 12, 8}, {std::nullopt, 0, 0}};
    for (const auto& [told, fans, count] : cases) {
        SimulatedFanController controller;
        for (int fan = 0; fan < fans; ++fan) controller.addFan(fan, 1000, 900, 2000);
        if (told) controller.keys["FNum"] = *told;
        EXPECT_EQ(SmcFanReader(controller).fanCount(), count);
    }
    SimulatedFanController gap;
    gap.addFan(0, 1000, 900, 2000);
    gap.addFan(2, 1000, 900, 2000);
    EXPECT_EQ(SmcFanReader(gap).fanCount(), 1);
}

TEST(SmcFanReader, ReadsTheFansThatAnswer) {
    SimulatedFanController controller;
    controller.keys["FNum"] = SimulatedFanController::byteKey(3);
    controller.addFan(0, 1833, 1200, 5500);
    controller.addFan(2, 0, 1200, 5000);
    SmcFanReader reader(controller);
    EXPECT_THAT(reader.read(), ElementsAre(Fan{1833, 5500}, Fan{0, 5000}));
    controller.keys["F0Mx"].reading = Answer::refusal;
    EXPECT_THAT(reader.read(), ElementsAre(Fan{1833, 0}, Fan{0, 5000}));
}

TEST(SmcFanReader, CanOnlyChangeFansThatAllShowTheirKeys) {
    SimulatedFanController complete;
    complete.keys["FNum"] = SimulatedFanController::byteKey(2);
    complete.addFan(0, 1833, 1200, 5500);
    complete.addFan(1, 1900, 1200, 5500, ModeKey::Md);
    complete.keys["F0md"].reading = Answer::refusal;  // that there is one is enough
    EXPECT_TRUE(SmcFanReader(complete).isControllable());
    SimulatedFanController without;
    EXPECT_FALSE(SmcFanReader(without).isControllable());  // any fan at all

    for (const char* key : {"F0md", "F1Md", "F1Tg", "F0Mn", "F1Mx"}) {
        without = complete;
        without.keys[key].information = Answer::refusal;
        EXPECT_FALSE(SmcFanReader(without).isControllable()) << key;
        without.keys.erase(key);
        EXPECT_FALSE(SmcFanReader(without).isControllable()) << key;
    }
    complete.keys["F1Mx"] = SimulatedFanController::floatKey(1200);  // no room between the limits
    EXPECT_FALSE(SmcFanReader(complete).isControllable());
}

}  // namespace
}  // namespace tavrel
