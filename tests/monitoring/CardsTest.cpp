#include "monitoring/Cards.h"
#include "monitoring/HealthScore.h"

#include <algorithm>

#include <gmock/gmock.h>

namespace tavrel {
namespace {

using Heat = Sensors::ThermalState;
using Kind = Card::Kind;
using State = Card::State;

TEST(HealthScore, WeighsDiskMemoryProcessorsAndHeat) {
    struct Row {
        std::int64_t available;  // of 100
        std::int64_t pressure;
        double cpu;
        Heat heat;
        int score;
    };
    const std::vector<Row> rows = {
        {100, 1, 0, Heat::nominal, 100}, {40, 1, 0.7, Heat::nominal, 100}, {0, 1, 0, Heat::nominal, 60},
        {0, 4, 1, Heat::critical, 7},    {20, 1, 0, Heat::nominal, 80},    {100, 2, 0, Heat::nominal, 90},
        {100, 3, 0, Heat::nominal, 90},  {100, 4, 0, Heat::nominal, 80},   {100, 1, 0.85, Heat::fair, 88},
        {100, 1, 1, Heat::serious, 73},
    };
    for (const Row& row : rows) {
        MachineFigures figures;
        figures.disk = {.total = 100, .available = row.available};
        figures.memory.pressure = row.pressure;
        figures.cpu = row.cpu;
        figures.thermalState = row.heat;
        EXPECT_EQ(healthScore(figures), row.score) << row.available << ' ' << row.pressure << ' ' << row.cpu;
    }
    EXPECT_EQ(healthScore({}), 100) << "what is not known costs nothing";
    EXPECT_EQ(healthGrade(85), HealthGrade::excellent);
    EXPECT_EQ(healthGrade(84), HealthGrade::good);
    EXPECT_EQ(healthGrade(65), HealthGrade::good);
    EXPECT_EQ(healthGrade(64), HealthGrade::needsCare);
}

/// The texts of a card in the order of their fields, empty ones left out.
using Texts = std::vector<std::string>;

class CardsTest : public ::testing::Test {
  protected:
    [[nodiscard]] Card card(Kind kind) const {
        const auto cards = statusCards(figures_, texts_);
        const auto is = [kind](const Card& each) { return each.kind == kind; };
        EXPECT_EQ(std::count_if(cards.begin(), cards.end(), is), 1);
        return *std::find_if(cards.begin(), cards.end(), is);
    }
    [[nodiscard]] Texts texts(Kind kind) const {
        const Card it = card(kind);
        Texts all = {it.title, it.chip, it.value, it.unit, it.footer, it.detail};
        std::erase(all, "");
        return all;
    }
    [[nodiscard]] double meter(Kind kind) const { return std::get<double>(card(kind).graph); }

    MachineFigures figures_;
    PlatformTexts texts_ = {
        .noFan = "none", .fanUnavailable = "not ours", .graphics = "working", .noGraphics = "unknown"};
};

TEST_F(CardsTest, TellTheEdgesApart) {
    figures_.cores = 8;
    EXPECT_EQ(texts(Kind::cpu), (Texts{"CPU", "—", "8 cores"}));
    figures_.cpu = 0.1499;
    EXPECT_EQ(texts(Kind::cpu), (Texts{"CPU", "14", "%", "idle · 8 cores"}));
    for (const int percent : {29, 57, 58}) {
        figures_.cpu = percent / 100.0;
        EXPECT_EQ(card(Kind::cpu).value, std::to_string(percent));
    }
    figures_.cpu = 0.15;
    figures_.load = 0.66;
    EXPECT_EQ(card(Kind::cpu).footer, "busy · load 0.7 · 8 cores");

    figures_.memory = {.used = 3, .total = 4, .swap = 0, .pressure = 2};
    EXPECT_EQ(card(Kind::memory).footer, "Pressure elevated");
    figures_.memory.pressure = 4;
    figures_.memory.swap = 2'000'000;
    EXPECT_EQ(texts(Kind::memory), (Texts{"Memory", "75", "%", "Pressure high · swap 2 MB"}));
    figures_.memory.used.reset();
    EXPECT_EQ(card(Kind::memory).value + card(Kind::memory).unit, "—");

    figures_.disk = {.total = 1000, .available = 150};
    EXPECT_EQ(card(Kind::disk).state, State::normal);
    figures_.disk.available = 149;
    EXPECT_EQ(card(Kind::disk).state, State::elevated);

    EXPECT_EQ(texts(Kind::network), (Texts{"Network", "↓ —", "Offline"}));
    figures_.upload = 12'000;
    figures_.connection = "Wi-Fi";
    figures_.networkHistory = {0, 50, 200};
    EXPECT_EQ(texts(Kind::network), (Texts{"Network", "Wi-Fi", "↓ —", "↑ 12 KB/s"}));
    EXPECT_EQ(card(Kind::network).graph, Card::Graph(std::vector<double>{0, 0.25, 1}));

    EXPECT_EQ(card(Kind::gpu).footer, "unknown");
    figures_.gpu = 0.5;
    EXPECT_EQ(card(Kind::gpu).footer, "working");
    figures_.gpuCores = 1;
    EXPECT_EQ(card(Kind::gpu).footer, "1 GPU core");

    EXPECT_EQ(card(Kind::thermal).value, "—");
    EXPECT_DOUBLE_EQ(meter(Kind::thermal), 1.0 / 7);
    figures_.thermalState = Heat::serious;
    EXPECT_EQ(card(Kind::thermal).value, "Hot");
    figures_.cpuTemp = 65.5;
    EXPECT_EQ(card(Kind::thermal).value, "66");
    figures_.thermalState = Heat::critical;
    EXPECT_EQ(texts(Kind::thermal), (Texts{"Thermal", "Throttling", "Thermal status"}));
    EXPECT_DOUBLE_EQ(meter(Kind::thermal), 35.5 / 70);
    figures_.cpuTemp = 20;
    EXPECT_EQ(meter(Kind::thermal), 0);
}

TEST_F(CardsTest, SayHowLongTheBatteryLasts) {
    Sensors::Battery& battery = figures_.battery.emplace(Sensors::Battery{.percent = 20, .minutesLeft = 125});
    EXPECT_EQ(texts(Kind::battery), (Texts{"Battery", "2h 5m left", "20", "%"}));
    EXPECT_EQ(card(Kind::battery).state, State::normal);
    battery = {.percent = 19, .minutesLeft = 59};
    EXPECT_EQ(texts(Kind::battery), (Texts{"Battery", "59m left", "19", "%"}));
    EXPECT_EQ(card(Kind::battery).state, State::critical);
    battery.minutesLeft.reset();
    EXPECT_EQ(card(Kind::battery).chip, "On battery");
    battery.pluggedIn = true;
    EXPECT_EQ(card(Kind::battery).chip, "Plugged in");
    battery.charging = true;
    battery.cycles = 311;
    EXPECT_EQ(texts(Kind::battery), (Texts{"Battery", "Charging", "19", "%", "311 cycles"}));
    battery.health = 91;
    EXPECT_EQ(card(Kind::battery).footer, "91% health · 311 cycles");
}

TEST_F(CardsTest, LetTheFirstFanStandForAll) {
    EXPECT_EQ(texts(Kind::fans), (Texts{"Fan", "—", "Load 0%", "none"}));
    figures_.fans = {{.rpm = 1199.7, .max = 0}};
    EXPECT_EQ(card(Kind::fans).footer, "Load 0%") << "no division by an unknown speed";
    figures_.fans = {{.rpm = 1500, .max = 4000}, {.rpm = 0, .max = 0}};
    EXPECT_EQ(texts(Kind::fans), (Texts{"Fans", "1500", "RPM", "Load 38%", "not ours"}));
}

TEST_F(CardsTest, StandInOneOrderWithACardForEachAccessory) {
    figures_.battery = {.percent = 50};
    figures_.accessories = {{"Ana's AirPods Pro", 81}, {"MX Mouse", 17}};
    std::vector<std::string> symbols;
    for (const Card& each : statusCards(figures_, texts_)) symbols.push_back(each.symbol);
    EXPECT_THAT(symbols, ::testing::ElementsAre("sun.max", "cpu", "rectangle.3.group", "memorychip",
                                                "internaldrive", "network", "thermometer.medium",
                                                "battery.75percent", "airpodspro", "magicmouse", "fan.fill"));
    EXPECT_EQ(card(Kind::health).unit, "Excellent");
}

}  // namespace
}  // namespace tavrel
