#include "monitoring/HealthScore.h"
#include "monitoring/StatusTexts.h"

#include <gtest/gtest.h>

namespace tavrel {
namespace {

using Heat = Sensors::ThermalState;

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

TEST(StatusTexts, TellTheEdgesApart) {
    MachineFigures figures;
    figures.cores = 8;
    EXPECT_EQ(StatusTexts::cpu(figures), (StatusTexts::MetricCard{"CPU", "—", "", "8 cores"}));
    figures.cpu = 0.1499;
    EXPECT_EQ(StatusTexts::cpu(figures), (StatusTexts::MetricCard{"CPU", "14", "%", "idle · 8 cores"}));
    for (const int percent : {29, 57, 58}) {
        figures.cpu = percent / 100.0;
        EXPECT_EQ(StatusTexts::cpu(figures).value, std::to_string(percent));
    }
    figures.cpu = 0.15;
    figures.load = 0.66;
    EXPECT_EQ(StatusTexts::cpu(figures).footer, "busy · load 0.7 · 8 cores");

    figures.memory = {.used = 3, .total = 4, .swap = 0, .pressure = 2};
    EXPECT_EQ(StatusTexts::memory(figures).footer, "Pressure elevated");
    figures.memory.pressure = 4;
    figures.memory.swap = 2'000'000;
    EXPECT_EQ(StatusTexts::memory(figures).footer, "Pressure high · swap 2 MB");
    EXPECT_EQ(StatusTexts::memory(figures).value, "75");
    figures.memory.used.reset();
    EXPECT_EQ(StatusTexts::memory(figures).value + StatusTexts::memory(figures).unit, "—");

    figures.disk = {.total = 1000, .available = 150};
    EXPECT_FALSE(StatusTexts::isDiskNearlyFull(figures));
    figures.disk.available = 149;
    EXPECT_TRUE(StatusTexts::isDiskNearlyFull(figures));

    EXPECT_EQ(StatusTexts::network(figures), (StatusTexts::MetricCard{"Network", "↓ —", "", "Offline", ""}));
    figures.upload = 12'000;
    figures.connection = "Wi-Fi";
    EXPECT_EQ(StatusTexts::network(figures).footer, "↑ 12 KB/s");

    const MachineWords words = {.graphics = "working", .noGraphics = "unknown"};
    EXPECT_EQ(StatusTexts::gpu(figures, words).footer, "unknown");
    figures.gpu = 0.5;
    EXPECT_EQ(StatusTexts::gpu(figures, words).footer, "working");
    figures.gpuCores = 1;
    EXPECT_EQ(StatusTexts::gpu(figures, words).footer, "1 GPU core");

    EXPECT_EQ(StatusTexts::thermal(figures).value, "—");
    EXPECT_DOUBLE_EQ(StatusTexts::heatShare(figures), 1.0 / 7);
    figures.thermalState = Heat::serious;
    EXPECT_EQ(StatusTexts::thermal(figures).value, "Hot");
    figures.cpuTemp = 65.5;
    EXPECT_EQ(StatusTexts::thermal(figures).value, "66");
    figures.thermalState = Heat::critical;
    EXPECT_EQ(StatusTexts::thermal(figures),
              (StatusTexts::MetricCard{"Thermal", "Throttling", "", "Thermal status"}));
    EXPECT_DOUBLE_EQ(StatusTexts::heatShare(figures), 35.5 / 70);
    figures.cpuTemp = 20;
    EXPECT_EQ(StatusTexts::heatShare(figures), 0);
}

TEST(StatusTexts, SayHowLongTheBatteryLasts) {
    Sensors::Battery battery = {.percent = 50, .minutesLeft = 125};
    EXPECT_EQ(StatusTexts::batteryState(battery), "2h 5m left");
    battery.minutesLeft = 59;
    EXPECT_EQ(StatusTexts::batteryState(battery), "59m left");
    battery.minutesLeft.reset();
    EXPECT_EQ(StatusTexts::batteryState(battery), "On battery");
    battery.pluggedIn = true;
    EXPECT_EQ(StatusTexts::batteryState(battery), "Plugged in");
    battery.charging = true;
    EXPECT_EQ(StatusTexts::batteryState(battery), "Charging");
    EXPECT_EQ(StatusTexts::batteryWear(battery), "");
    battery.cycles = 311;
    EXPECT_EQ(StatusTexts::batteryWear(battery), "311 cycles");
    battery.health = 91;
    EXPECT_EQ(StatusTexts::batteryWear(battery), "91% health · 311 cycles");
}

TEST(StatusTexts, LetTheFirstFanStandForAll) {
    const MachineWords words = {.noFan = "none", .fanUnavailable = "not ours"};
    MachineFigures figures;
    EXPECT_EQ(StatusTexts::fans(figures, words), (StatusTexts::FanCard{"Fan", "Load 0%", "—", "", "none"}));
    figures.fans = {{.rpm = 1199.7, .max = 0}};
    EXPECT_EQ(StatusTexts::fans(figures, words).share, "Load 0%") << "no division by an unknown speed";
    figures.fans = {{.rpm = 1500, .max = 4000}, {.rpm = 0, .max = 0}};
    EXPECT_EQ(StatusTexts::fans(figures, words),
              (StatusTexts::FanCard{"Fans", "Load 38%", "1500", "RPM", "not ours"}));
    EXPECT_EQ(StatusTexts::accessorySymbol("Ana's AirPods Pro"), "airpodspro");
    EXPECT_EQ(StatusTexts::accessorySymbol("MX Mouse"), "magicmouse");
}

}  // namespace
}  // namespace tavrel
